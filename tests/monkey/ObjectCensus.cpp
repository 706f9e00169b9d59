// The toolkit calls its inspectors at each object's birth and death through a table of hooks.
#include "monkey/ObjectCensus.h"

#include <QObject>
#include <QStringList>
#include <mutex>
#include <unordered_set>

extern quintptr Q_DECL_IMPORT qtHookData[];

namespace
{

constexpr int ObjectAdded = 3; // places in the table, the same since it exists
constexpr int ObjectRemoved = 4;

std::mutex& guard()
{
    static std::mutex mutex; // a file dialog looks at its folder in a thread
    return mutex;
}

std::unordered_set<QObject*>& living()
{
    static auto* objects = new std::unordered_set<QObject*>; // outlives the last object
    return *objects;
}

void added(QObject* object)
{
    const std::lock_guard lock(guard());
    living().insert(object);
}

void removed(QObject* object)
{
    const std::lock_guard lock(guard());
    living().erase(object);
}

} // namespace

void ObjectCensus::begin()
{
    living().clear();
    guard();
    qtHookData[ObjectAdded] = reinterpret_cast<quintptr>(&added);
    qtHookData[ObjectRemoved] = reinterpret_cast<quintptr>(&removed);
}

long long ObjectCensus::count()
{
    const std::lock_guard lock(guard());
    return static_cast<long long>(living().size());
}

std::map<QString, int> ObjectCensus::byClass()
{
    const std::lock_guard lock(guard());
    std::map<QString, int> counts;
    for (const QObject* object : living()) {
        QString name = QLatin1String(object->metaObject()->className());
        if (!object->objectName().isEmpty())
            name += QLatin1Char(' ') + object->objectName();
        ++counts[name];
    }
    return counts;
}

QString ObjectCensus::ofTheProgram(const std::map<QString, int>& before, const std::map<QString, int>& after)
{
    constexpr int ToolkitsOwn = 3;
    QStringList lines;
    for (const auto& [name, number] : after) {
        const auto found = before.find(name);
        const int more = number - (found == before.end() ? 0 : found->second);
        const QString object = name.section(QLatin1Char(' '), 1);
        const bool toolkits = object.isEmpty() || object.startsWith(QLatin1Char('q')) ||
                              object.startsWith(QLatin1String("QWidget")) || object.startsWith(QLatin1String("Thread"));
        if (more > (toolkits ? ToolkitsOwn : 0))
            lines << QStringLiteral("%1 x %2").arg(more).arg(name);
    }
    return lines.join(QStringLiteral(", "));
}
