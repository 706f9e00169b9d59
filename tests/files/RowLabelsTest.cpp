// The rows of all lists: panel codes and shown names.
#include "files/RowLabels.h"

#include <gtest/gtest.h>

TEST(RowName, showsBytesThatAreNoCharactersAsBlanksAndKeepsTheOthers)
{
    EXPECT_EQ(rowName(std::string("A\0B\x1F\x7F\x80\x9F\xA0\xFF ~", 11)), "A B    \xA0\xFF ~");
    EXPECT_EQ(rowName(""), "");
}
