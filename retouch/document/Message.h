#pragma once

#include <initializer_list>
#include <QCoreApplication>
#include <string>

/// A text that a person reads, marked with QT_TRANSLATE_NOOP("Program", ...), in the person's language; %1, %2 ... are
/// the arguments. Any thread.
std::string Message(const char* pszText, std::initializer_list<std::string> vArguments = {});
