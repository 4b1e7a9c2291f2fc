#pragma once

#include <optional>
#include <QByteArray>
#include <string>

/// Writes a file so that at any moment the old one or the new one is there whole, whatever fails: beside it, through to
/// the disk, and then into its place. The new file takes over the old one's rights; a link keeps pointing to it.
/// Without bReplace a file that is there stays. Nothing on success, otherwise the reason. Any thread.
std::optional<std::string> WriteWhole(const std::string& strPath, const QByteArray& bytes, bool bReplace);
