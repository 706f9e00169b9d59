// The floor of a press: a bare Qt window with one drawn key in a multiple-document area, which tells the FIFO of each
// press and release and paints afterwards.
#include "bench/WireRecord.h"

#include <QApplication>
#include <QMainWindow>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QMouseEvent>
#include <QPainter>
#include <QTimer>
#include <cstdio>

namespace
{

constexpr int ShownAfter = 500; ///< milliseconds until the window manager has placed everything

class BareKey final : public QWidget
{
public:
    explicit BareKey(int wire) : wire_(wire)
    {
        setAttribute(Qt::WA_OpaquePaintEvent);
        setFixedSize(24, 120);
    }

protected:
    void mousePressEvent(QMouseEvent*) override { tell(NoteOnStatus, false); }
    void mouseDoubleClickEvent(QMouseEvent*) override { tell(NoteOnStatus, true); }
    void mouseReleaseEvent(QMouseEvent*) override { tell(NoteOffStatus, false); }
    void paintEvent(QPaintEvent*) override { QPainter(this).fillRect(rect(), down_ ? Qt::red : Qt::white); }

private:
    void tell(unsigned status, bool doubleClick)
    {
        WireRecord record;
        record.kind = WireRecord::Message;
        record.doubleClick = doubleClick ? 1 : 0;
        record.status = static_cast<std::uint16_t>(status);
        tellWire(wire_, record);
        down_ = status == NoteOnStatus;
        update();
    }

    int wire_;
    bool down_ = false;
};

} // namespace

int main(int argc, char** argv)
{
    const int wire = wireOfEnvironment();
    if (wire < 0) {
        std::fprintf(stderr, "usage: TARVOLYNE_BENCH_WIRE=FIFO bench_press_floor\n");
        return 2;
    }
    QApplication application(argc, argv);
    QMainWindow window;
    auto* area = new QMdiArea;
    window.setCentralWidget(area);
    auto* key = new BareKey(wire);
    area->addSubWindow(key);
    window.resize(900, 650);
    window.show();
    QTimer::singleShot(ShownAfter, [&] {
        const QPoint place = key->mapToGlobal(key->rect().center());
        WireRecord record;
        record.kind = WireRecord::Place;
        record.x = static_cast<std::int16_t>(place.x());
        record.y = static_cast<std::int16_t>(place.y());
        tellWire(wire, record);
    });
    return QApplication::exec();
}
