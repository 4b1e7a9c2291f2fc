#include "base/Thread.h"

#include <atomic>
#include <cassert>
#include <thread>

namespace winlite
{

namespace
{
std::atomic<std::thread::id> s_UserInterfaceThread;
} // namespace

void SetUserInterfaceThread() { s_UserInterfaceThread = std::this_thread::get_id(); }

bool IsUserInterfaceThread()
{
    const std::thread::id id = s_UserInterfaceThread;
    return id == std::thread::id() || id == std::this_thread::get_id();
}

void AssertUserInterfaceThread() { assert(IsUserInterfaceThread()); }

} // namespace winlite
