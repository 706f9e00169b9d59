// The one door to the bytes of files, messages and window buffers.
//
// A ByteBuffer is a text whose characters are byte values, one character per byte. Since char is signed on our
// machines, nobody reads buffer[i] as a number: these functions give and take int values 0 to 255, and check every
// place against the buffer's length. Places named ...Offset are 0-based, places named ...Position 1-based.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

using ByteBuffer = std::string;

/// A run of bytes inside a record or buffer: 0-based offset and length, both in bytes.
struct Field {
    int offset = 0;
    int size = 0;
};

/// The first offset behind a field; where the next field begins.
constexpr int end(Field field) { return field.offset + field.size; }

/// The 0-based offset of a 1-based position.
constexpr int offsetOf(int position) { return position - 1; }

/// The byte at a 0-based offset, 0 to 255; 0 when the offset lies outside the buffer.
int byteAt(std::string_view bytes, int offset);

/// Writes a byte (its low 8 bits) at a 0-based offset; outside the buffer nothing happens.
void putByte(ByteBuffer& bytes, int offset, int value);

/// The part of the field that lies inside the buffer: shorter than field.size, or empty, near the buffer's end.
std::string_view slice(std::string_view bytes, Field field);

/// Everything from a 0-based offset to the end; empty when the offset lies behind the end.
std::string_view sliceFrom(std::string_view bytes, int offset);

/// Copies text over the field's bytes, blank padded or cut to the field's size; what lies outside the buffer is left.
void putText(ByteBuffer& bytes, Field field, std::string_view text);

/// Copies bytes to a 0-based offset without padding; what would lie outside the buffer is left out.
void putBytes(ByteBuffer& bytes, int offset, std::string_view source);

/// A 16-bit number, low byte first.
int word16LowFirst(std::string_view bytes, int offset);
void putWord16LowFirst(ByteBuffer& bytes, int offset, int value);

/// A 16-bit number, high byte first.
int word16HighFirst(std::string_view bytes, int offset);
void putWord16HighFirst(ByteBuffer& bytes, int offset, int value);

/// Blanks removed at the right end, at both ends. Only the blank 0x20 counts.
std::string_view trimRight(std::string_view text);
std::string_view trim(std::string_view text);

/// A text field as far as it was written: up to its first NUL, without blanks at its end.
std::string_view textIn(std::string_view bytes, Field field);

/// Cut or blank-padded to exactly `width` bytes.
ByteBuffer padded(std::string_view text, int width);

/// n bytes of one value.
inline ByteBuffer filled(int count, int value)
{
    return ByteBuffer(static_cast<std::size_t>(count), static_cast<char>(value));
}

/// One byte as a buffer.
inline ByteBuffer byteText(int value) { return filled(1, value); }

/// The buffer's length as the int that all offsets are.
inline int lengthOf(std::string_view bytes) { return static_cast<int>(bytes.size()); }
