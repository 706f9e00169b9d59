// monkey SEED EVENTS [--until N] [--trace] [--most MS]: the whole program in a world of its own, pressed at random.
// Ends with 0 when nothing was found. --until stops after that event, --trace tells each event before it is done,
// --most is the longest that one event may take the processor (1000 ms; a memory checker wants more).
#include "monkey/Monkey.h"
#include "core/Dichiarazioni.h"
#include "files/WindowBuffer.h"
#include "monkey/Account.h"
#include "monkey/Invariants.h"
#include "monkey/ObjectCensus.h"
#include "monkey/TimelessRun.h"
#include "monkey/VirtualLoop.h"
#include "monkey/WatchedMidiService.h"
#include "monkey/World.h"
#include "shell/QtProgram.h"
#include "shell/frmMain.h"
#include "support/Figures.h"
#include "toolkit/StageTimer.h"

#include <QApplication>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace
{

struct Order {
    std::uint64_t seed = 1;
    long long events = 1000;
    bool trace = false;
    double most = 1000; ///< milliseconds of the processor an event
};

Order orderOf(int argc, char** argv)
{
    Order order;
    if (argc < 3) {
        std::fprintf(stderr, "monkey SEED EVENTS [--until N] [--trace] [--most MS]\n");
        std::exit(2);
    }
    order.seed = std::strtoull(argv[1], nullptr, 10);
    order.events = std::atoll(argv[2]);
    for (int index = 3; index < argc; ++index) {
        if (std::strcmp(argv[index], "--trace") == 0)
            order.trace = true;
        if (std::strcmp(argv[index], "--until") == 0 && index + 1 < argc)
            order.events = std::min(order.events, static_cast<long long>(std::atoll(argv[++index])));
        if (std::strcmp(argv[index], "--most") == 0 && index + 1 < argc)
            order.most = std::atof(argv[++index]);
    }
    return order;
}

/// The runs of the program, one after the other in this process, until the events are spent.
class Session
{
public:
    explicit Session(const Order& order)
        : order_(order), chance_(order.seed), world_(chance_, 40), monkey_(chance_, world_, loop(), order.events)
    {
        loop().onIdle = [this] {
            Account::at(monkey_.events() + 1);
            monkey_.act();
        };
        monkey_.mostMilliseconds = order.most;
        monkey_.onLongEvent = [](const std::string& text) { Account::fail(text); };
        monkey_.onRest = [this](const frmMain& window) { look(window); };
        if (order.trace)
            monkey_.onTrace = [](const QString& text) { std::fprintf(stderr, "%s\n", qPrintable(text)); };
        if (!chance_.oneIn(4))
            world_.chooseLanguage(chance_.between(1, 2));
    }
    void run()
    {
        while (!monkey_.done())
            runOnce();
    }
    void tellFigures() const;

    static VirtualLoop& loop()
    {
        static auto* one = new VirtualLoop; // the application's from its making on
        return *one;
    }

private:
    void runOnce();
    void look(const frmMain& window);
    void lookAfter();

    Order order_;
    Chance chance_;
    World world_;
    Monkey monkey_;
    long long runs_ = 0;
    long long looks_ = 0;
    long long messages_ = 0;
    std::map<int, int> kinds_; ///< at how many looks a window of the kind stood
    std::map<QString, int> before_;
};

void Session::runOnce()
{
    monkey_.countStart();
    Account::at(monkey_.events());
    if (runs_ > 0 && chance_.oneIn(3))
        world_.damageSomething(chance_);
    WatchedMidiService service(order_.seed + static_cast<std::uint64_t>(runs_));
    service.onBadMessage = [](const std::string& text) { Account::fail("on the wire: " + text); };
    service.failsAtTimes = chance_.oneIn(3);
    service.hasOutput = !chance_.oneIn(8);
    if (order_.trace)
        std::fprintf(stderr, "%lld starts\n", monkey_.events());
    static_cast<void>(runInApplication(service, {}));
    monkey_.runEnded();
    messages_ += service.messages;
    ++runs_;
    lookAfter();
    World::forgetProcess();
}

void Session::look(const frmMain& window)
{
    ++looks_;
    for (const WindowBuffer* tag : OpenWindows::all())
        ++kinds_[tag->kind()];
    for (const std::string& fault : Invariants::broken(window))
        Account::fail(fault);
    for (const std::string& fault : world_.faultsOfFiles())
        Account::fail(fault);
}

/// After the program: nothing of it is left.
void Session::lookAfter()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (!OpenWindows::all().empty())
        Account::fail("a buffer is registered after the end");
    if (EventHold::active())
        Account::fail("a hold stands after the end");
    for (const std::string& fault : world_.faultsOfFiles())
        Account::fail(fault);
    const std::map<QString, int> now = ObjectCensus::byClass();
    // The toolkit keeps a few objects of its own from their first use on; what the program makes has a name.
    const QString more = ObjectCensus::ofTheProgram(before_, now);
    if (runs_ > 1 && !more.isEmpty())
        Account::fail("left behind by the program: " + more.toStdString());
    before_ = now;
}

void Session::tellFigures() const
{
    const std::string which = " (seed " + std::to_string(order_.seed) + ")";
    std::string kinds;
    for (const auto& [kind, times] : kinds_)
        kinds += " " + std::to_string(kind) + ":" + std::to_string(times);
    std::printf("windows seen at the looks, kind:times%s\n", kinds.c_str());
    noteFigure("R14", "events of the monkey" + which, monkey_.events());
    noteFigure("R14", "starts of the program under the monkey" + which, runs_);
    noteFigure("R14", "messages on the wire looked at" + which, messages_);
    noteFigure("R14", "longest event in ms" + which, static_cast<long long>(monkey_.longest()));
    std::printf("%lld events, %lld starts, %lld looks, %lld messages, longest event %.0f ms (%s)\n", monkey_.events(),
                runs_, looks_, messages_, monkey_.longest(), monkey_.longestText().c_str());
}

void quiet(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtFatalMsg || type == QtCriticalMsg)
        std::fprintf(stderr, "%s\n", qPrintable(text));
}

} // namespace

int main(int argc, char** argv)
{
    const Order order = orderOf(argc, argv);
    Account::begin("monkey " + std::to_string(order.seed) + " " + std::to_string(order.events) + " --trace");
    ObjectCensus::begin();
    qInstallMessageHandler(quiet);
    return runTimeless(Session::loop(), argc, argv, [&] {
        Session session(order);
        session.run();
        session.tellFigures();
    });
}
