// What holds whenever the program is at rest, whatever has been done to it.
#pragma once

#include <string>
#include <vector>

class frmMain;

namespace Invariants
{

/// What does not hold now: windows against the registry and the slots, lengths of the windows' buffers, names of the
/// controls. Empty when all is well.
std::vector<std::string> broken(const frmMain& window);

} // namespace Invariants
