#include "app/picture_output.h"

#include <QFileDialog>
#include <QPageLayout>
#include <QPainter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include "ui/prompt.h"

namespace solvane {

namespace {

// The picture as it would be printed: white behind, without the device
// pixel ratio, so a saved file has the canvas's full resolution.
QImage Flat(const QImage& picture) {
    QImage out = picture.convertToFormat(QImage::Format_RGB32);
    out.setDevicePixelRatio(1);
    return out;
}

void Paint(QPrinter& printer, const QImage& picture) {
    QPainter p(&printer);
    const QImage flat = Flat(picture);
    const QRect page = p.viewport();
    QSize size = flat.size();
    size.scale(page.size(), Qt::KeepAspectRatio);
    p.setViewport(page.x(), page.y(), size.width(), size.height());
    p.setWindow(flat.rect());
    p.drawImage(0, 0, flat);
}

}  // namespace

bool WriteJpeg(const QImage& picture, const QString& file) {
    return Flat(picture).save(file, "JPG", 92);
}

bool SavePictureAs(QWidget* parent, const QImage& picture, const QString& folder,
                   const QString& defaultName, Prompt& prompt) {
    QString file = QFileDialog::getSaveFileName(parent, "Save Picture", folder + "/" + defaultName,
                                                "Pictures (*.jpg)");
    if (file.isEmpty()) return false;
    if (!file.endsWith(".jpg", Qt::CaseInsensitive) && !file.endsWith(".jpeg", Qt::CaseInsensitive))
        file += ".jpg";
    if (WriteJpeg(picture, file)) return true;
    prompt.Ask("The picture could not be written to " + file.toStdString() + ".", "Save Picture",
               Buttons::Ok, Icon::Exclamation);
    return false;
}

bool WritePdf(const QImage& picture, const QString& file, const QString& title) {
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setOutputFileName(file);
    printer.setDocName(title);
    const QImage flat = Flat(picture);
    printer.setPageOrientation(flat.width() > flat.height() ? QPageLayout::Landscape
                                                            : QPageLayout::Portrait);
    Paint(printer, flat);
    return QFileInfo(file).size() > 0;
}

void PrintPicture(QWidget* parent, const QImage& picture, const QString& folder,
                  const QString& title, Prompt& prompt) {
    if (QPrinterInfo::availablePrinters().isEmpty()) {
        prompt.Ask(
            "No printers were found -- printing not available until printer is installed. "
            "Save the drawing as a JPEG file and print it later.  You may also print it to "
            "a PDF file now.",
            "Print", Buttons::Ok, Icon::Information);
        QString file = QFileDialog::getSaveFileName(parent, "Print to PDF File",
                                                    folder + "/" + title + ".pdf", "PDF (*.pdf)");
        if (file.isEmpty()) return;
        if (!file.endsWith(".pdf", Qt::CaseInsensitive)) file += ".pdf";
        if (!WritePdf(picture, file, title))
            prompt.Ask("The PDF file " + file.toStdString() + " could not be written.", "Print",
                       Buttons::Ok, Icon::Exclamation);
        return;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setDocName(title);
    printer.setPageOrientation(picture.width() > picture.height() ? QPageLayout::Landscape
                                                                  : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted) return;
    Paint(printer, picture);
}

}  // namespace solvane
