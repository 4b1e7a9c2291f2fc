#pragma once

#include <QIcon>
#include <string>

/// The icon of a tool or rule by its command word, in the colour of the window's text; empty for unknown words.
QIcon IconFor(const std::string& strName);
