#include "app/tabular.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFontDatabase>
#include <QFontMetricsF>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTextDocument>
#include <QVBoxLayout>

#include "app/field_binding.h"
#include "app/form_helpers.h"

namespace solvane {

namespace {

// The report's columns line up only in a fixed-pitch face: "Courier New"
// where the desktop has it, else the first face found whose letters all take
// the same width.
bool SameWidths(const QFont& font) {
    const QFontMetricsF m(font);
    return m.horizontalAdvance('i') == m.horizontalAdvance('W') &&
           m.horizontalAdvance('.') == m.horizontalAdvance('M');
}

QFont ReportFont(int pointSize) {
    QFont font("Courier New", pointSize);
    font.setStyleHint(QFont::TypeWriter);
    if (SameWidths(font)) return font;
    const QString fixed = QFontDatabase::systemFont(QFontDatabase::FixedFont).family();
    for (const QString& family :
         {fixed, QString("DejaVu Sans Mono"), QString("Liberation Mono"), QString("Noto Mono")}) {
        QFont candidate(family, pointSize);
        candidate.setStyleHint(QFont::TypeWriter);
        if (SameWidths(candidate)) return candidate;
    }
    return font;
}

}  // namespace

TabularScreen::TabularScreen(TabularController& controller,
                             std::function<void(const Navigation&)> navigate, QWidget* parent)
    : QDialog(parent), controller_(controller), navigate_(std::move(navigate)) {
    setObjectName("tabular");
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    views_ = new QComboBox;
    views_->setObjectName("views");
    for (int v = 1; v <= kTableViews; ++v) views_->addItem(TableTitle(static_cast<TableView>(v)));
    top->addWidget(new QLabel("Table:"));
    top->addWidget(views_, 1);
    connect(AddButton(top, "zone_2", "< Prior"), &QPushButton::clicked, this, [this] {
        controller_.Zone(2);
        ShowFields();
    });
    page_ = new QLabel;
    page_->setObjectName("page");
    top->addWidget(page_);
    connect(AddButton(top, "zone_1", "Next >"), &QPushButton::clicked, this, [this] {
        controller_.Zone(1);
        ShowFields();
    });
    layout->addLayout(top);

    text_ = new QPlainTextEdit;
    text_->setObjectName("Text1");
    text_->setReadOnly(true);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setFont(ReportFont(7));
    text_->setMinimumSize(1000, 560);
    layout->addWidget(text_, 1);

    auto* buttons = new QHBoxLayout;
    connect(AddButton(buttons, "Summary", "Summary Chart"), &QPushButton::clicked, this, [this] {
        const Navigation nav = controller_.Summary();
        hide();
        navigate_(nav);
    });
    connect(AddButton(buttons, "Hourly", "Hourly Output..."), &QPushButton::clicked, this,
            [this] { navigate_(controller_.Hourly()); });
    connect(AddButton(buttons, "print", "Print..."), &QPushButton::clicked, this,
            &TabularScreen::Print);
    connect(AddButton(buttons, "save", "Save Table..."), &QPushButton::clicked, this, [this] {
        const QString file = QFileDialog::getSaveFileName(
            this, "Save Table", QString(TableTitle(controller_.view())).replace(' ', '_') + ".txt",
            "Text file (*.txt);;PDF document (*.pdf)");
        if (!file.isEmpty() && !SaveTable(file))
            QMessageBox::warning(this, "Save Table", "The table could not be written to " + file);
    });
    buttons->addStretch(1);
    connect(AddButton(buttons, "mainmenu", "Main Menu"), &QPushButton::clicked, this,
            &TabularScreen::reject);
    layout->addLayout(buttons);
    connect(views_, &QComboBox::activated, this, [this](int index) {
        if (!Open(static_cast<TableView>(index + 1)))
            views_->setCurrentIndex(static_cast<int>(controller_.view()) - 1);
    });
}

bool TabularScreen::Open(TableView view) {
    if (!controller_.Show(view)) return false;
    views_->setCurrentIndex(static_cast<int>(view) - 1);
    ShowFields();
    show();
    raise();
    activateWindow();
    return true;
}

void TabularScreen::ShowFields() {
    setWindowTitle(QString::fromStdString(controller_.fields.caption));
    ApplyFields(this, controller_.fields);
    text_->setPlainText(QString::fromStdString(controller_.text()).remove('\r'));
}

bool TabularScreen::WritePdf(const QString& file) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setPageOrientation(QPageLayout::Landscape);
    printer.setDocName(windowTitle());
    QTextDocument doc;
    doc.setDefaultFont(ReportFont(7));
    doc.setPlainText(text_->toPlainText());
    doc.print(&printer);
    return QFile::exists(file) && QFile(file).size() > 0;
}

bool TabularScreen::SaveTable(const QString& file) {
    if (file.endsWith(".pdf", Qt::CaseInsensitive)) return WritePdf(file);
    QFile out(file);
    if (!out.open(QIODevice::WriteOnly)) return false;
    const QByteArray text = QString::fromStdString(controller_.text()).toLocal8Bit();
    return out.write(text) == text.size();
}

void TabularScreen::Print() {
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        // No printer: the same pages into a PDF file.
        QMessageBox::information(this, "Print",
                                 "No printer is installed: the table will be written to a PDF "
                                 "file instead.");
        const QString file = QFileDialog::getSaveFileName(
            this, "Print to PDF",
            QString(TableTitle(controller_.view())).replace(' ', '_') + ".pdf",
            "PDF document (*.pdf)");
        if (!file.isEmpty() && !WritePdf(file))
            QMessageBox::warning(this, "Print", "The PDF file could not be written to " + file);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setPageOrientation(QPageLayout::Landscape);
    QPrintDialog dialog(&printer, this);
    if (dialog.exec() != QDialog::Accepted) return;
    QTextDocument doc;
    doc.setDefaultFont(ReportFont(7));
    doc.setPlainText(text_->toPlainText());
    doc.print(&printer);
}

void TabularScreen::reject() {
    QDialog::reject();
    navigate_({Screen::MainMenu, false, false});
}

}  // namespace solvane
