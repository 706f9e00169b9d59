// The per-user folder of the state files: what stands in it is its user's alone.
#pragma once

#include <string>

/// Makes the folder and the missing ones above it, for their user alone; closes one of the user's that stands there to
/// all others. What cannot be made or closed is left: the files in it then meet their own errors.
void makeStateFolder(const std::string& path);
