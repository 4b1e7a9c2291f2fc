#pragma once

#include <cstddef>

/// The exceptions that tell of a shortage: the standard library's, and the framework's.
enum class Shortage
{
    Standard,
    Framework,
};

/// Lets the next allocation of at least nLarge bytes fail, whoever makes it.
void LetMemoryRunOut(Shortage eShortage, std::size_t nLarge);

/// Whether it did fail; from here on none does.
bool HasMemoryRunOut();
