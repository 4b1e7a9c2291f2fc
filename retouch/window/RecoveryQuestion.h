#pragma once

#include "window/CommandBar.h"

#include <QWidget>

/// Where sessions are kept for a recovery: the user's state folder.
std::string SessionFolder();

/// Asks, one after the other, what shall become of sessions that came to an unexpected end. Does not wait for the
/// answers. All must outlive the window.
void OfferRecovery(QWidget& window, const ExecuteCommand& execute);
