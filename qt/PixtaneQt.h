#pragma once

#include "platform/framework.h"
#include "qtdesktop/QtDesktop.h"

/// The started library in a Qt program. Made right after the QApplication, destroyed after the last CPixtaneWidget.
class CPixtaneQt
{
public:
    /// Throws std::runtime_error when the library does not start.
    CPixtaneQt();
    ~CPixtaneQt();
    CPixtaneQt(const CPixtaneQt&) = delete;
    CPixtaneQt& operator=(const CPixtaneQt&) = delete;

private:
    winlite::QtDesktop m_desktop;
    CWinApp m_app;
};
