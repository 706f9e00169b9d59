// Reading and writing byte values with every place checked against the buffer.
#include "core/Bytes.h"

#include <algorithm>

namespace
{

bool inside(std::string_view bytes, int offset)
{
    return offset >= 0 && static_cast<std::size_t>(offset) < bytes.size();
}

} // namespace

int byteAt(std::string_view bytes, int offset)
{
    return inside(bytes, offset) ? static_cast<unsigned char>(bytes[static_cast<std::size_t>(offset)]) : 0;
}

void putByte(ByteBuffer& bytes, int offset, int value)
{
    if (inside(bytes, offset))
        bytes[static_cast<std::size_t>(offset)] = static_cast<char>(static_cast<unsigned char>(value & 0xFF));
}

std::string_view slice(std::string_view bytes, Field field)
{
    if (!inside(bytes, field.offset) || field.size <= 0)
        return {};
    return bytes.substr(static_cast<std::size_t>(field.offset), static_cast<std::size_t>(field.size));
}

std::string_view sliceFrom(std::string_view bytes, int offset)
{
    return inside(bytes, offset) ? bytes.substr(static_cast<std::size_t>(offset)) : std::string_view();
}

void putText(ByteBuffer& bytes, Field field, std::string_view text)
{
    if (field.size > 0)
        putBytes(bytes, field.offset, padded(text, field.size));
}

void putBytes(ByteBuffer& bytes, int offset, std::string_view source)
{
    if (!inside(bytes, offset))
        return;
    const auto place = static_cast<std::size_t>(offset);
    const std::size_t count = std::min(source.size(), bytes.size() - place);
    bytes.replace(place, count, source.substr(0, count));
}

int word16LowFirst(std::string_view bytes, int offset)
{
    return byteAt(bytes, offset) + byteAt(bytes, offset + 1) * 256;
}

void putWord16LowFirst(ByteBuffer& bytes, int offset, int value)
{
    putByte(bytes, offset, value);
    putByte(bytes, offset + 1, value >> 8);
}

int word16HighFirst(std::string_view bytes, int offset)
{
    return byteAt(bytes, offset) * 256 + byteAt(bytes, offset + 1);
}

void putWord16HighFirst(ByteBuffer& bytes, int offset, int value)
{
    putByte(bytes, offset, value >> 8);
    putByte(bytes, offset + 1, value);
}

std::string_view trimRight(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view trim(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string_view() : trimRight(text.substr(first));
}

std::string_view textIn(std::string_view bytes, Field field)
{
    const std::string_view text = slice(bytes, field);
    return trimRight(text.substr(0, text.find('\0')));
}

ByteBuffer padded(std::string_view text, int width)
{
    ByteBuffer field(text.substr(0, static_cast<std::size_t>(std::max(width, 0))));
    field.resize(static_cast<std::size_t>(std::max(width, 0)), ' ');
    return field;
}
