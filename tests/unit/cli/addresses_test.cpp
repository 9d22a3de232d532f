// SPDX-License-Identifier: Apache-2.0
#include <array>
#include <cstring>
#include <string>
#include <vector>

#include "console_fixture.h"

namespace {

template <class Parser, size_t SIZE>
bool parses(Parser* parser, std::string text, std::array<uint8_t, SIZE>* out)
{
    const int result = parser(text.data(), out->data());
    EXPECT_TRUE(result == 0 || result == -1) << result;
    return result == 0;
}

using Mac = std::array<uint8_t, 6>;

TEST(MacAddress, Accepted)
{
    const std::vector<std::pair<const char*, Mac>> cases = {
        {"00-11-22-33-44-55", {0x00, 0x11, 0x22, 0x33, 0x44, 0x55}},
        {"aA-Bb-cC-Dd-eE-Ff", {0xaa, 0xbb, 0xcc, 0xdd, 0xee, 0xff}},
        {"1-2-3-4-5-6", {1, 2, 3, 4, 5, 6}},
        {"00-11-22-33-44-55-66", {0x00, 0x11, 0x22, 0x33, 0x44, 0x55}}, // what follows the sixth field is ignored
        {"1ff-2-3-4-5-6", {0xff, 2, 3, 4, 5, 6}},                       // the low byte is kept
        {"123456789abcdef01-0-0-0-0-0", {0x01, 0, 0, 0, 0, 0}},
        {"--1--2-3-4-5-6-", {1, 2, 3, 4, 5, 6}}, // empty fields vanish
        {"00-11-22-33-44-55-", {0x00, 0x11, 0x22, 0x33, 0x44, 0x55}},
    };
    for (const auto& [text, expected] : cases) {
        Mac mac{};
        EXPECT_TRUE(parses(CLI_parse_mac_addr_from_string, text, &mac)) << text;
        EXPECT_EQ(mac, expected) << text;
    }
}

TEST(MacAddress, Refused)
{
    for (const char* text : {"", "-", "------", "00-11-22-33-44", "00:11:22:33:44:55", "00-11-22-33-44-5g",
                             "00-11-22-33-44- 5", "0x1-2-3-4-5-6", "00-11-22-33-44-55\n", "\xff-1-2-3-4-5"}) {
        Mac mac{};
        EXPECT_FALSE(parses(CLI_parse_mac_addr_from_string, text, &mac)) << text;
    }
}

TEST(MacAddress, SevenFieldsFiveFieldsAndAWideField)
{
    Mac mac{};
    EXPECT_TRUE(parses(CLI_parse_mac_addr_from_string, "00-11-22-33-44-55-66", &mac));
    EXPECT_EQ(mac, (Mac{0x00, 0x11, 0x22, 0x33, 0x44, 0x55}));
    EXPECT_FALSE(parses(CLI_parse_mac_addr_from_string, "00-11-22-33-44", &mac));
    EXPECT_TRUE(parses(CLI_parse_mac_addr_from_string, "1ff-2-3-4-5-6", &mac));
    EXPECT_EQ(mac[0], 0xff);
}

TEST(MacAddress, TheTextIsSplitInPlace)
{
    char text[] = "00-11-22-33-44-55";
    uint8_t mac[6];
    ASSERT_EQ(CLI_parse_mac_addr_from_string(text, mac), 0);
    EXPECT_STREQ(text, "00");
}

using Ipv6 = std::array<uint8_t, 16>;
using Ipv6Short = std::array<uint8_t, 10>;

TEST(Ipv6Address, LeastSignificantByteFirst)
{
    Ipv6 address{};
    ASSERT_TRUE(parses(CLI_parse_ipv6_addr_from_string, "1:2:3:4:5:6:7:8", &address));
    EXPECT_EQ(address, (Ipv6{8, 0, 7, 0, 6, 0, 5, 0, 4, 0, 3, 0, 2, 0, 1, 0}));
    ASSERT_TRUE(parses(CLI_parse_ipv6_addr_from_string, "2001:db8:85a3:0:0:8a2e:370:7334", &address));
    EXPECT_EQ(address, (Ipv6{0x34, 0x73, 0x70, 0x03, 0x2e, 0x8a, 0, 0, 0, 0, 0xa3, 0x85, 0xb8, 0x0d, 0x01, 0x20}));
}

TEST(Ipv6Address, ThereIsNoShorthand)
{
    Ipv6 address{};
    EXPECT_FALSE(parses(CLI_parse_ipv6_addr_from_string, "1::8", &address));
}

TEST(Ipv6Address, Refused)
{
    for (const char* text :
         {"", ":", "1::8", "1:2:3:4:5:6:7", "1:2:3:4:5:6:7:8:9", "1:2:3:4:5:6:7:g", "1.2.3.4", "1:2:3:4:5:6:7: 8"}) {
        Ipv6 address{};
        EXPECT_FALSE(parses(CLI_parse_ipv6_addr_from_string, text, &address)) << text;
    }
}

TEST(Ipv6Address, ANinthGroupIsNotConverted)
{
    std::array<uint8_t, 18> guarded;
    guarded.fill(0x5a);
    char text[] = "1:2:3:4:5:6:7:8:9";
    EXPECT_EQ(CLI_parse_ipv6_addr_from_string(text, guarded.data() + 1), -1);
    EXPECT_EQ(guarded.front(), 0x5a);
    EXPECT_EQ(guarded.back(), 0x5a);
}

TEST(Ipv6ShortAddress, FiveGroups)
{
    Ipv6Short address{};
    ASSERT_TRUE(parses(CLI_parse_ipv6_short_addr_from_string, "1:2:3:4:abCD", &address));
    EXPECT_EQ(address, (Ipv6Short{0xcd, 0xab, 4, 0, 3, 0, 2, 0, 1, 0}));
    for (const char* text : {"", "1:2:3:4", "1:2:3:4:5:6", "1::4:5", "1:2:3:4:z"})
        EXPECT_FALSE(parses(CLI_parse_ipv6_short_addr_from_string, text, &address)) << text;
}

TEST(EncryptionKey, SixteenBytes)
{
    std::array<uint8_t, 16> key{};
    ASSERT_EQ(CLI_convert_encryption_string_to_ascii_array("00112233445566778899aAbBcCdDeEfF", key.data()), 0);
    EXPECT_EQ(key, (std::array<uint8_t, 16>{0x00, 0x11, 0x22, 0x33, 0x44, 0x55, 0x66, 0x77, 0x88, 0x99, 0xaa, 0xbb,
                                            0xcc, 0xdd, 0xee, 0xff}));
    // What follows the 32nd digit is not looked at.
    EXPECT_EQ(CLI_convert_encryption_string_to_ascii_array("00112233445566778899aAbBcCdDeEfFxyz", key.data()), 0);
    for (const char* text : {"", "0", "00112233445566778899aAbBcCdDeEf", "00112233445566778899aAbBcCdDeEfg",
                             "0x112233445566778899aabbccddeeff00", "-0112233445566778899aAbBcCdDeEfF"}) {
        EXPECT_EQ(CLI_convert_encryption_string_to_ascii_array(text, key.data()), -1) << text;
    }
}

TEST(EncryptionKey, ThirtyTwoBytes)
{
    const std::string half = "0123456789abcdef0123456789ABCDEF";
    std::array<uint8_t, 32> key{};
    ASSERT_EQ(CLI_convert_binary_encryption_string_to_ascii_array((half + half + "?").c_str(), key.data()), 0);
    EXPECT_EQ(key[0], 0x01);
    EXPECT_EQ(key[15], 0xef);
    EXPECT_EQ(key[31], 0xef);
    EXPECT_EQ(CLI_convert_binary_encryption_string_to_ascii_array(half.c_str(), key.data()), -1);
    EXPECT_EQ(CLI_convert_binary_encryption_string_to_ascii_array((half + half.substr(1)).c_str(), key.data()), -1);
}

class OltList : public Console {
  protected:
    int parse(std::string text)
    {
        memset(pairs, 0x55, sizeof pairs);
        count = 99;
        const int outcome = Parse_OLTs_id_array(text.data(), pairs, &count, session);
        output = engine::take_output(session);
        return outcome;
    }

    uint16_t pairs[4][2];
    uint8_t count = 0;
    std::string output;
};

constexpr const char* ODD = "Error, The list must contain an even number of elementst.\n";
constexpr const char* FEW = "Error, The list must contain at least 4 elementst.\n";

TEST_F(OltList, Pairs)
{
    ASSERT_EQ(parse("1;2;3;4"), 0);
    EXPECT_EQ(output, "");
    EXPECT_EQ(count, 2);
    EXPECT_EQ(pairs[0][0], 1);
    EXPECT_EQ(pairs[0][1], 2);
    EXPECT_EQ(pairs[1][0], 3);
    EXPECT_EQ(pairs[1][1], 4);
    EXPECT_EQ(pairs[2][0], 0x5555); // rows that were not read are left alone

    ASSERT_EQ(parse("0x10;16;-1;;32767;5;6;7;8;9;not-even-a-number"), 0);
    EXPECT_EQ(count, 4);
    EXPECT_EQ(pairs[0][0], 16);
    EXPECT_EQ(pairs[0][1], 16);
    EXPECT_EQ(pairs[1][0], 0xFFFF);
    EXPECT_EQ(pairs[3][1], 8);
}

TEST_F(OltList, WrongNumberOfElements)
{
    const std::vector<std::pair<const char*, const char*>> cases = {
        {"1;2;3", ODD}, {"1", ODD}, {"1;2;3;4;5", ODD}, {"1;2", FEW}, {"", FEW}, {";;;", FEW},
    };
    for (const auto& [text, message] : cases) {
        EXPECT_EQ(parse(text), -1) << text;
        EXPECT_EQ(output, message) << text;
        EXPECT_EQ(count, 99) << text;
    }
}

TEST_F(OltList, FourElementsAndFewer)
{
    EXPECT_EQ(parse("1;2;3"), -1);
    EXPECT_EQ(output, ODD);
    EXPECT_EQ(parse("1;2"), -1);
    EXPECT_EQ(output, FEW);
    EXPECT_EQ(parse("1;2;3;4"), 0);
    EXPECT_EQ(output, "");
    EXPECT_EQ(count, 2);
}

TEST_F(OltList, WrongElements)
{
    EXPECT_EQ(parse("1;x;3;4"), -1);
    EXPECT_EQ(output, "Error reading olt_id parameter for command from input, aborting\r\n");
    EXPECT_EQ(pairs[0][1], 0); // cleared before it is converted
    EXPECT_EQ(parse("1;2;32768;4"), -1);
    EXPECT_EQ(output, "Error in range of olt_id parameter for command from input min:-32767 max:32767, aborting\r\n");
}

} // namespace
