// Control arrays: members of one name told apart by an index that handlers compute with.
#pragma once

#include <QObject>
#include <QString>
#include <array>
#include <cstddef>

/// "Text1(3)": the object name of a member of a control array.
inline QString memberName(const char* array, int index)
{
    return QStringLiteral("%1(%2)").arg(QLatin1String(array)).arg(index);
}

template <typename Control, int Count>
class ControlArray
{
public:
    explicit ControlArray(const char* name) : name_(name) {}

    /// Makes every member by `make(index)` and names it.
    template <typename Make>
    void create(Make&& make)
    {
        for (int index = 0; index < Count; ++index) {
            Control* control = make(index);
            control->setObjectName(memberName(name_, index));
            controls_[static_cast<std::size_t>(index)] = control;
        }
    }

    /// Places one member and names it: for an array that is made piece by piece, or has gaps.
    Control* put(int index, Control* control)
    {
        control->setObjectName(memberName(name_, index));
        controls_[static_cast<std::size_t>(index)] = control;
        return control;
    }

    /// Connects a signal of every member to handler(index, arguments...).
    template <typename Signal, typename Handler>
    void onEach(Signal signal, QObject* context, Handler handler)
    {
        for (int index = 0; index < Count; ++index)
            QObject::connect((*this)[index], signal, context,
                             [handler, index](auto&&... arguments) { handler(index, arguments...); });
    }

    Control* operator[](int index) const { return controls_[static_cast<std::size_t>(index)]; }
    static constexpr int count() { return Count; }
    auto begin() const { return controls_.begin(); }
    auto end() const { return controls_.end(); }

private:
    const char* name_;
    std::array<Control*, static_cast<std::size_t>(Count)> controls_{};
};
