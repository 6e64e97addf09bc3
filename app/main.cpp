// The desktop program.
#include <QApplication>
#include <QDate>
#include <QMessageBox>
#include <QPrinterInfo>
#include <QScreen>

#include <iostream>

#include "app/app_shell.h"
#include "app/desktop_mime.h"
#include "app/qt_prompt.h"

namespace {

std::string HomeOption(const QStringList& args) {
    for (int i = 1; i < args.size(); ++i) {
        if (args[i] == "--home" && i + 1 < args.size()) return args[i + 1].toStdString();
        if (args[i].startsWith("--home=")) return args[i].mid(7).toStdString();
    }
    return {};
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setApplicationName("SOLVANE 2020");
    QApplication::setQuitOnLastWindowClosed(false);

    solvane::ProgramPaths paths;
    try {
        paths = solvane::LocateProgramDir(HomeOption(QApplication::arguments()),
                                          QApplication::applicationFilePath().toStdString());
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, "SOLVANE 2020", e.what());
        return 2;
    }

    solvane::QtPrompt prompt;
    solvane::AppShell shell(paths, prompt);
    QObject::connect(&shell, &solvane::AppShell::programEnded, &app, &QApplication::quit);

    solvane::StartupEnvironment env;
    // The hourly output opens as a spreadsheet through the desktop's opener
    // for CSV files: the start-up alert is for a desktop that has none.
    env.spreadsheetFound = solvane::DesktopOpens("text/csv");
    // Printing always has the PDF writer besides the installed printers.
    env.printerCount = static_cast<int>(QPrinterInfo::availablePrinters().size()) + 1;
    if (const QScreen* screen = QGuiApplication::primaryScreen()) {
        env.screenWidth = screen->size().width();
        env.screenHeight = screen->size().height();
    }
    const QDate today = QDate::currentDate();
    env.year = today.year();
    env.month = today.month();
    env.day = today.day();
    try {
        shell.Start(env);
    } catch (const std::exception& e) {
        // Missing reference data stops the program, as any file error at start-up.
        QMessageBox::critical(nullptr, "SOLVANE 2020", e.what());
        return 2;
    }
    return app.exec();
}
