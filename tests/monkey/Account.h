// What a monkey or one of its kin says when something is wrong, and the last words when the program dies under it: the
// seed and the number of the event, by which it can be done again.
#pragma once

#include <string>

namespace Account
{

/// The command line, for the words of a failure.
void begin(const std::string& how, unsigned hangSeconds = 60);
/// The event that goes on now. Each 64th is the sign of life: without one for `hangSeconds` the run is a hang.
void at(long long event);
/// Ends the process with status 1, after saying what is wrong and how to see it again.
[[noreturn]] void fail(const std::string& text);

} // namespace Account
