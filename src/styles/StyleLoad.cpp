// The sequence of a Load Styles, without its timers.
#include "styles/StyleSends.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"

namespace
{

constexpr int LoadingStyleNotice = 2;
constexpr int NoNotice = 0;

/// An arrangement window that holds only the file of empty styles, or none, has nothing to send.
bool hasStyleData(std::string_view buffer)
{
    const int kind = byteAt(buffer, WindowLayout::KindOffset);
    if (kind != WindowKind::ArrFile && kind != WindowKind::ArrNew)
        return true;
    return byteAt(buffer, WindowLayout::StyStateOffset) == WindowLayout::StyState::Real;
}

void endLoad()
{
    StyLoad.owner = nullptr;
    StatusNotice(NoNotice, {});
}

} // namespace

bool StyLoadBegin(std::string_view buffer, const void* owner)
{
    if (StyLoad.owner != nullptr || !hasStyleData(buffer))
        return false;
    const int count = StyGroupCount(buffer);
    if (count == 0)
        return false;
    StyLoad = {0, count, owner};
    StatusNotice(LoadingStyleNotice, {});
    return true;
}

StyLoadStep StyLoadNext(std::string_view buffer)
{
    if (StyLoad.currentGroup + 1 <= StyLoad.groupCount && StyGroupSend(StyLoad.currentGroup, buffer) == 0) {
        ++StyLoad.currentGroup;
        return StyLoadStep::Sent;
    }
    endLoad();
    return StyLoadStep::Ended;
}

void StyLoadAbandon(const void* owner)
{
    if (owner != nullptr && StyLoad.owner == owner)
        endLoad();
}
