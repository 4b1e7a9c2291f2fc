#pragma once

#include <string>
#include <vector>

/// The photos that paths stand for: files as they are, and of folders the JPEG, PNG and TIFF files in them, in the
/// order of their names, without hidden ones and without what lies in folders there. Nothing, with a message, for a
/// folder without photos and a path that is not there.
std::vector<std::string> PhotosOf(const std::vector<std::string>& vPaths, std::string& strError);

/// Carries out commands on many photos, each in a program of its own and at most nJobs at a time, as many as fit into
/// the machine's memory. What each says comes in the order of the photos; at the end those that failed are named. What
/// comes of it does not depend on nJobs. Returns the program's exit code. Main thread of a program without a window.
int RunBatch(const std::string& strCommands, const std::vector<std::string>& vPhotos, int nJobs);
