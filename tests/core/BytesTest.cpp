// The one door to the bytes: reading and writing inside a buffer and outside of it, fields of text, both byte orders.
#include "core/Bytes.h"

#include "support/Hex.h"
#include <gtest/gtest.h>

TEST(Bytes, readsEveryByteAsZeroTo255)
{
    EXPECT_EQ(byteAt(bytesOf("00 7F 80 F0 FF"), 0), 0);
    EXPECT_EQ(byteAt(bytesOf("00 7F 80 F0 FF"), 2), 128);
    EXPECT_EQ(byteAt(bytesOf("00 7F 80 F0 FF"), 3), 240);
    EXPECT_EQ(byteAt(bytesOf("00 7F 80 F0 FF"), 4), 255);
}

TEST(Bytes, readsZeroOutsideTheBuffer)
{
    EXPECT_EQ(byteAt("A", 1), 0);
    EXPECT_EQ(byteAt("A", -1), 0);
    EXPECT_EQ(byteAt("", 0), 0);
}

TEST(Bytes, writesTheLowEightBitsAndNothingOutside)
{
    ByteBuffer bytes = "ABC";
    putByte(bytes, 1, 0x1F0);
    putByte(bytes, 2, -1);
    putByte(bytes, 3, 7);
    putByte(bytes, -1, 7);
    EXPECT_EQ(hex(bytes), "41 F0 FF");
}

TEST(Bytes, cutsASliceAtTheEndOfTheBuffer)
{
    EXPECT_EQ(slice("ABCDE", {1, 3}), "BCD");
    EXPECT_EQ(slice("ABCDE", {3, 9}), "DE");
    EXPECT_EQ(slice("ABCDE", {5, 1}), "");
    EXPECT_EQ(slice("ABCDE", {-1, 3}), "");
    EXPECT_EQ(slice("ABCDE", {1, -3}), "");
    EXPECT_EQ(sliceFrom("ABCDE", 3), "DE");
    EXPECT_EQ(sliceFrom("ABCDE", 5), "");
    EXPECT_EQ(sliceFrom("ABCDE", -1), "");
}

TEST(Bytes, putsATextBlankPaddedOrCutToItsField)
{
    ByteBuffer bytes = "..........";
    putText(bytes, {1, 4}, "ab");
    putText(bytes, {6, 2}, "cdef");
    EXPECT_EQ(bytes, ".ab  .cd..");
    putText(bytes, {8, 5}, "xyz");
    EXPECT_EQ(bytes, ".ab  .cdxy");
    putText(bytes, {-1, 5}, "xyz");
    putText(bytes, {10, 5}, "xyz");
    putText(bytes, {0, -5}, "xyz");
    EXPECT_EQ(bytes, ".ab  .cdxy");
}

TEST(Bytes, putsBytesWithoutPaddingAndKeepsTheLength)
{
    ByteBuffer bytes = "......";
    putBytes(bytes, 4, "abc");
    putBytes(bytes, 0, "z");
    putBytes(bytes, 6, "q");
    putBytes(bytes, -1, "q");
    EXPECT_EQ(bytes, "z...ab");
}

TEST(Bytes, knowsBothByteOrders)
{
    ByteBuffer bytes = bytesOf("12 34 00 00 00 00");
    EXPECT_EQ(word16LowFirst(bytes, 0), 0x3412);
    EXPECT_EQ(word16HighFirst(bytes, 0), 0x1234);
    EXPECT_EQ(word16HighFirst(bytes, 5), 0);
    putWord16LowFirst(bytes, 2, 0xFEDC);
    putWord16HighFirst(bytes, 4, 0xFEDC);
    EXPECT_EQ(hex(bytes), "12 34 DC FE FE DC");
}

TEST(Bytes, trimsBlanksOnly)
{
    EXPECT_EQ(trimRight("  a b  "), "  a b");
    EXPECT_EQ(trim("  a b  "), "a b");
    EXPECT_EQ(trim("    "), "");
    EXPECT_EQ(trimRight(""), "");
    EXPECT_EQ(trim("\ta\n"), "\ta\n");
}

TEST(Bytes, readsATextUpToItsNulOrItsBlanks)
{
    const std::string record = "ab  cd  " + std::string("ef\0gh  \0", 9);
    EXPECT_EQ(textIn(record, {0, 8}), "ab  cd");
    EXPECT_EQ(textIn(record, {8, 9}), "ef");
    EXPECT_EQ(textIn(record, {2, 2}), "");
    EXPECT_EQ(textIn(record, {10, 7}), "");
    EXPECT_EQ(textIn(record, {6, 4}), "  ef");
    EXPECT_EQ(textIn(record, {99, 4}), "");
}

TEST(Bytes, padsAndCutsToAWidth)
{
    EXPECT_EQ(padded("abc", 5), "abc  ");
    EXPECT_EQ(padded("abcdef", 5), "abcde");
    EXPECT_EQ(padded("abc", 0), "");
    EXPECT_EQ(padded("abc", -2), "");
    EXPECT_EQ(hex(filled(3, 0xF7)), "F7 F7 F7");
    EXPECT_EQ(hex(byteText(0x80)), "80");
}

TEST(Bytes, positionsCountFromOne)
{
    EXPECT_EQ(offsetOf(1), 0);
    EXPECT_EQ(offsetOf(225), 224);
    EXPECT_EQ(end(Field{32, 10496}), 10528);
}
