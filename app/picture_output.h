// Saving and printing a picture of a canvas: a JPEG file, the printer through
// Qt's print dialog, or a PDF file when no printer is installed.
#pragma once

#include <QImage>
#include <QString>

class QWidget;

namespace solvane {

struct Prompt;

// Asks for a file name (mask "*.jpg", `defaultName` offered) and writes the
// picture; false when cancelled or not written (the user is told why).
bool SavePictureAs(QWidget* parent, const QImage& picture, const QString& folder,
                   const QString& defaultName, Prompt& prompt);
// Writes a JPEG file; false when it could not be written.
bool WriteJpeg(const QImage& picture, const QString& file);

// Prints on a chosen printer; with none installed, tells the user and offers
// a PDF file instead.
void PrintPicture(QWidget* parent, const QImage& picture, const QString& folder,
                  const QString& title, Prompt& prompt);
// Lays the picture out on one page, fitted to the page with its proportions.
bool WritePdf(const QImage& picture, const QString& file, const QString& title);

}  // namespace solvane
