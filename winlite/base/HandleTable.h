#pragma once

#include "base/Types.h"

#include <cstddef>
#include <memory>

namespace winlite
{

/// Anything a handle can stand for: a window, a device context, a region, a bitmap.
class HandleObject
{
public:
    HandleObject() = default;
    HandleObject(const HandleObject&) = delete;
    HandleObject& operator=(const HandleObject&) = delete;
    virtual ~HandleObject() = default;
};

/// Enters the object and returns its new handle. Handles are never NULL, and a closed one is not given out again before
/// some 60,000 others have used its place, so that a stale handle finds nothing. Any thread.
HANDLE OpenHandle(std::shared_ptr<HandleObject> pObject);

/// The object of a handle; empty for NULL, a closed handle or a value that never was one. Any thread.
std::shared_ptr<HandleObject> FindHandle(HANDLE h);

/// The object of a handle when it is a T, otherwise empty. Any thread.
template<class T>
std::shared_ptr<T> FindHandleAs(HANDLE h)
{
    return std::dynamic_pointer_cast<T>(FindHandle(h));
}

/// Takes the handle out of the table and returns its object (empty when the handle is not open). Any thread.
std::shared_ptr<HandleObject> CloseHandleEntry(HANDLE h);

/// How many handles are open, stock objects not counted: tests end with the number they began with. Any thread.
std::size_t OpenHandleCount();

/// Leaves one open handle out of the count for good: stock objects and shared cursors live as long as the program.
void DoNotCountHandle(HANDLE h);

} // namespace winlite
