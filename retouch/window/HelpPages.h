#pragma once

#include <QMenuBar>

/// A page of all shortcuts: those of the menus' actions, of the tools' rows, and what has no row.
void ShowShortcuts(QWidget& parent, const QMenuBar& menus);

/// The program's name and the versions it is made of.
void ShowAbout(QWidget& parent);
