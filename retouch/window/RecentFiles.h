#pragma once

#include <QStringList>
#include <vector>

/// A photo that was open before: its path, and a text that tells it from the others.
struct RecentFile
{
    QString strPath;
    QString strText;
};

/// Texts for paths: the file's name, with its folder where two names are equal.
std::vector<RecentFile> Told(const QStringList& vPaths);

/// The photos opened last, the latest first, as kept in the settings; what is no longer there is dropped.
std::vector<RecentFile> RecentFiles();

/// Puts a photo first.
void RememberRecent(const QString& strPath);

/// The folder of the latest; empty for none.
QString LatestFolder();
