#pragma once

#include <QString>

/// A text as a menu shows it unchanged: there an ampersand alone marks the letter that follows.
inline QString AsLabel(QString strText) { return strText.replace("&", "&&"); }
