#pragma once

#include "pixels/Spot.h"
#include "program/Jobs.h"
#include "program/ProgramParts.h"

#include <optional>

// Changes of a small part of the photo, as jobs: only that part is copied and kept, however large the photo is. They
// change as much as the selection says, and each is one step. None without a photo, or with nothing of it there.

/// Takes the red out of the pupils in a rectangle, bitmap pixels, by a percentage.
std::optional<Job> RedeyeJob(ProgramParts& parts, const CRect& rc, int iAmount);

/// Removes what a spot shows.
std::optional<Job> HealJob(ProgramParts& parts, const Spot& spot);
