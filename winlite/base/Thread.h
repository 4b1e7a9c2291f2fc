#pragma once

namespace winlite
{

/// Makes the calling thread the user-interface thread: the one that made the desktop.
void SetUserInterfaceThread();

/// Whether the calling thread is it; true for every thread while there is none.
bool IsUserInterfaceThread();

/// States that the caller is the user-interface thread. Every function that says "user-interface thread" means this.
void AssertUserInterfaceThread();

} // namespace winlite
