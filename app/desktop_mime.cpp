#include "app/desktop_mime.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QTextStream>
#include <functional>

namespace solvane {

namespace {

// A "key=a;b;" line whose key is `key` and whose list is not empty.
bool ListsValue(const QString& line, const QString& key) {
    if (!line.startsWith(key + '=')) return false;
    return !line.mid(key.size() + 1).trimmed().remove(';').isEmpty();
}

bool FileHasLine(const QString& path, const std::function<bool(const QString&)>& wanted) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) return false;
    QTextStream in(&file);
    while (!in.atEnd())
        if (wanted(in.readLine().trimmed())) return true;
    return false;
}

}  // namespace

bool DesktopOpens(const QString& mimeType) {
    // Associations made by the user or the system.
    for (const QString& dir :
         QStandardPaths::standardLocations(QStandardPaths::GenericConfigLocation)) {
        if (FileHasLine(dir + "/mimeapps.list",
                        [&](const QString& line) { return ListsValue(line, mimeType); }))
            return true;
    }
    // Applications that say they open the type, and the cache built from them.
    for (const QString& dir :
         QStandardPaths::standardLocations(QStandardPaths::ApplicationsLocation)) {
        if (FileHasLine(dir + "/mimeinfo.cache",
                        [&](const QString& line) { return ListsValue(line, mimeType); }))
            return true;
        const QDir apps(dir);
        for (const QString& name : apps.entryList({"*.desktop"}, QDir::Files)) {
            const bool opens = FileHasLine(apps.filePath(name), [&](const QString& line) {
                return line.startsWith("MimeType=") &&
                       line.mid(9).split(';', Qt::SkipEmptyParts).contains(mimeType);
            });
            if (opens) return true;
        }
    }
    return false;
}

}  // namespace solvane
