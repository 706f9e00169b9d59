// Counts the toolkit's objects that live, whoever owns them: what is left behind by a window shows, with its class.
#pragma once

#include <QString>
#include <map>

class QObject;

namespace ObjectCensus
{

/// From here on every object is counted. To be called first of all.
void begin();
long long count();
/// How many of each class live now, by name and, where it has one, object name.
std::map<QString, int> byClass();
/// What there is more of in `after` than in `before`, for people. The toolkit keeps some objects of its own from their
/// first use on: what has no name, or one of the toolkit's, counts only from four more of its class on.
QString ofTheProgram(const std::map<QString, int>& before, const std::map<QString, int>& after);

} // namespace ObjectCensus
