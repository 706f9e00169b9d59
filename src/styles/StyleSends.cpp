// A group on the wire: four descriptors of 6 bytes, the four blocks behind them, all packed to seven bits.
#include "styles/StyleSends.h"

#include "core/Dichiarazioni.h"
#include "core/Reports.h"
#include "files/StyImage.h"
#include "files/WindowLayout.h"
#include "midi/MIDI.h"
#include "midi/SysEx.h"

StyleLoadState StyLoad;

namespace
{

using namespace StyLayout;

constexpr int DescriptorSize = 6;
constexpr int DescriptorsSize = SlotsPerGroup * DescriptorSize;
constexpr int LargestOffset = 65535; ///< a descriptor has two bytes for it
constexpr int UserGroupFlag = 0x80;
constexpr int LoadingStyleNotice = 2;

/// The image of the style file inside a window buffer.
std::string_view imageIn(std::string_view buffer) { return sliceFrom(buffer, styleFileOffset(buffer)); }

/// Appends the descriptor of a block of `length` bytes that begins at `offset` of the body.
void appendDescriptor(ByteBuffer& body, int offset, int group, int length)
{
    body += byteText(offset % 256);
    body += byteText(0);
    body += byteText(offset / 256);
    body += byteText(UserGroupFlag | group);
    body += byteText(length % 256);
    body += byteText(length / 256);
}

/// The four descriptors. False when a slot is absent or a block begins where no descriptor can say.
bool buildDescriptors(std::string_view image, int group, ByteBuffer& body)
{
    int offset = DescriptorsSize;
    for (int index = 0; index < SlotsPerGroup; ++index) {
        const int length = StySlotLen(group * SlotsPerGroup + index, image);
        if (length == 0 || offset > LargestOffset)
            return false;
        appendDescriptor(body, offset, group, length);
        offset += length;
    }
    return true;
}

/// Where a group's blocks stand in the image.
Field groupBlocks(std::string_view image, int group)
{
    Field blocks{HeadSize, 0};
    for (int before = 0; before < group; ++before)
        blocks.offset += StyGroupLen(before * SlotsPerGroup, image);
    blocks.size = StyGroupLen(group * SlotsPerGroup, image);
    return blocks;
}

} // namespace

int StyGroupBuild(std::string_view buffer, int group)
{
    if (group < 0 || group >= GroupCount)
        return 1;
    const std::string_view image = imageIn(buffer);
    ByteBuffer body;
    if (!buildDescriptors(image, group, body))
        return 1;
    // Required: the table is not held against the file. A damaged file's group goes out with the descriptors of its
    // table and with as much of the blocks as there is.
    body += slice(image, groupBlocks(image, group));
    Midi.SysExOutput = sysExFrame(Function::StyleDump, packedSevenBit(body));
    return 0;
}

int StyGroupSend(int group, std::string_view buffer)
{
    if (StyGroupBuild(buffer, group) != 0)
        return 1;
    StatusNotice(LoadingStyleNotice, {});
    MidiLongSend();
    return 0;
}

void StyBankSelect(int& style, int kind)
{
    constexpr int BankBOffset = 64;
    constexpr int FactoryBank = 0;
    constexpr int UserBank = 1;
    constexpr int LowSevenBits = 0x7F;

    if (kind == WindowKind::ArrBankB)
        style += BankBOffset;
    const bool userStyles = kind == WindowKind::ArrFile || kind == WindowKind::ArrNew;
    Midi.SysExOutput = MidiProgramSelect(App.GlobalChannel, userStyles ? UserBank : FactoryBank, style & LowSevenBits);
}
