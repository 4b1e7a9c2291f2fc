#pragma once

#include "program/Tool.h"

#include <QIcon>

/// An icon in the colour of the window's text.
QIcon IconFor(const Icon& icon);
