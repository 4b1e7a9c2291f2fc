#include "window/RecentFiles.h"

#include <algorithm>
#include <QDir>
#include <QFileInfo>
#include <QSettings>

namespace
{

constexpr int MOST_RECENT_FILES = 8;
const char* const RECENT_FILES = "recentFiles";

QStringList Kept() { return QSettings().value(RECENT_FILES).toStringList(); }

} // namespace

std::vector<RecentFile> Told(const QStringList& vPaths)
{
    std::vector<RecentFile> vFiles;
    for (const QString& strPath : vPaths)
    {
        const QFileInfo file(strPath);
        const auto isCalledSo = [&](const QString& str) { return QFileInfo(str).fileName() == file.fileName(); };
        const bool bAlone = std::ranges::count_if(vPaths, isCalledSo) == 1;
        const QString strFolder = QDir::toNativeSeparators(file.path());
        vFiles.push_back({strPath, bAlone ? file.fileName() : file.fileName() + "  (" + strFolder + ")"});
    }
    return vFiles;
}

std::vector<RecentFile> RecentFiles()
{
    QStringList vPaths = Kept();
    vPaths.removeIf([](const QString& strPath) { return !QFileInfo::exists(strPath); });
    QSettings().setValue(RECENT_FILES, vPaths);
    return Told(vPaths);
}

void RememberRecent(const QString& strPath)
{
    QStringList vPaths = Kept();
    vPaths.removeAll(strPath);
    vPaths.prepend(strPath);
    QSettings().setValue(RECENT_FILES, vPaths.mid(0, MOST_RECENT_FILES));
}

QString LatestFolder()
{
    const QStringList vPaths = Kept();
    return vPaths.isEmpty() ? QString() : QFileInfo(vPaths.front()).path();
}
