// SPDX-License-Identifier: Apache-2.0
// The rules by which every handler reads its words; compiled into the test, as they are not exported.
#include "CLI_GENERAL/arguments.h"

#include <cerrno>
#include <string>
#include <vector>

#include "console_fixture.h"

using namespace epon;

namespace {

class Arguments : public Console {
  protected:
    // What reading the word printed; value is set when it was read.
    std::string read(const char* text, const NumberRule& rule)
    {
        value = 4711;
        was_read = read_number(session, text, rule, &value);
        return engine::take_output(session);
    }

    int64_t value = 0;
    bool was_read = false;
};

constexpr NumberRule SIGNED = signed_16("speed");
constexpr NumberRule UNSIGNED = unsigned_16("speed");
constexpr NumberRule WIDE = unsigned_32("speed");
constexpr NumberRule SIGNED_WIDE = {"speed", INT32_MIN, INT32_MAX, false};
constexpr NumberRule NARROW = unsigned_range("speed", 10, 20);

constexpr const char* READ_ERROR = "Error reading speed parameter for command from input, aborting\r\n";
constexpr const char* NEGATIVE = "Error reading negative value of speed parameter from input, aborting\r\n";

TEST_F(Arguments, NumbersThatAreRead)
{
    struct Case {
        const char* text;
        NumberRule rule;
        int64_t expected;
    };
    const std::vector<Case> cases = {
        {"0", SIGNED, 0},
        {"16", SIGNED, 16},
        {"0x10", SIGNED, 16},
        {"-5", SIGNED, -5},
        {"+7", SIGNED, 7},
        {"007", SIGNED, 7},
        {"32767", SIGNED, 32767},
        {"-32767", SIGNED, -32767},
        {"0x7FFF", SIGNED, 32767},
        {"0x7fff", SIGNED, 32767},
        {"0", UNSIGNED, 0},
        {"65535", UNSIGNED, 65535},
        {"0xFFFF", UNSIGNED, 65535},
        {"0xffffffff", WIDE, 4294967295},
        {"2147483647", WIDE, 2147483647},
        {"-2147483648", SIGNED_WIDE, INT32_MIN},
        {"10", NARROW, 10},
        {"20", NARROW, 20},
        {"3\x1f", SIGNED, 3}, // conversion may stop at a control character
        {"3\n", SIGNED, 3},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(read(c.text, c.rule), "") << c.text;
        EXPECT_TRUE(was_read) << c.text;
        EXPECT_EQ(value, c.expected) << c.text;
    }
}

TEST_F(Arguments, NumbersThatAreRefused)
{
    const std::string signed_range =
        "Error in range of speed parameter for command from input min:-32767 max:32767, aborting\r\n";
    const std::string unsigned_range_line =
        "Error in range of speed parameter for command from input min:0 max:65535, aborting\r\n";
    const std::string narrow_range =
        "Error in range of speed parameter for command from input min:10 max:20, aborting\r\n";
    struct Case {
        const char* text;
        NumberRule rule;
        std::string message;
    };
    const std::vector<Case> cases = {
        {"", SIGNED, READ_ERROR},
        {"\x01"
         "5",
         SIGNED, READ_ERROR}, // begins with a control character
        {"\n", SIGNED, READ_ERROR},
        {"3x", SIGNED, READ_ERROR},
        {"x", SIGNED, READ_ERROR},
        {"-", SIGNED, READ_ERROR},
        {"16k", UNSIGNED, READ_ERROR},
        {"1 2", SIGNED, READ_ERROR},
        {"1.5", SIGNED, READ_ERROR},
        {"3\xff", SIGNED, READ_ERROR},
        {"0x", SIGNED, READ_ERROR},
        {"0x-1", UNSIGNED, READ_ERROR}, // conversion stops at the x
        {"0X10", SIGNED, READ_ERROR},   // only a small x begins a hexadecimal number
        {"0x10g", SIGNED, READ_ERROR},
        {"0x100000000", WIDE, READ_ERROR},
        {"0xffffffffffffffffff", WIDE, READ_ERROR},
        {"2147483648", WIDE, READ_ERROR}, // decimal words have 31 bits
        {"-2147483649", SIGNED_WIDE, READ_ERROR},
        {"99999999999999999999", SIGNED, READ_ERROR},
        {"-1", UNSIGNED, NEGATIVE},
        {"-0", UNSIGNED, NEGATIVE},
        {"-70000", UNSIGNED, NEGATIVE},
        {"1-2", UNSIGNED, READ_ERROR},
        {"32768", SIGNED, signed_range},
        {"-32768", SIGNED, signed_range},
        {"0x8000", SIGNED, signed_range},
        {"0xffffffff", SIGNED, signed_range},
        {"65536", UNSIGNED, unsigned_range_line},
        {"0x10000", UNSIGNED, unsigned_range_line},
        {"9", NARROW, narrow_range},
        {"21", NARROW, narrow_range},
        {"0x15", NARROW, narrow_range},
        {"-10", NARROW, NEGATIVE},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(read(c.text, c.rule), c.message) << c.text;
        EXPECT_FALSE(was_read) << c.text;
        EXPECT_EQ(value, 4711) << c.text;
    }
}

TEST_F(Arguments, BasesSignsAndWhatFollowsANumber)
{
    for (const char* text : {"0x10", "16"}) {
        EXPECT_EQ(read(text, UNSIGNED), "");
        EXPECT_EQ(value, 16) << text;
    }
    EXPECT_EQ(read("16k", UNSIGNED), READ_ERROR);
    EXPECT_EQ(read("-1", UNSIGNED), NEGATIVE);
    EXPECT_EQ(read("0x-1", UNSIGNED), READ_ERROR);
}

TEST_F(Arguments, AnOldRangeErrorDoesNotSpoilTheNextNumber)
{
    errno = ERANGE;
    EXPECT_EQ(read("5", SIGNED), "");
    EXPECT_EQ(read("99999999999999999999", SIGNED), READ_ERROR);
    EXPECT_EQ(errno, 0);
    EXPECT_EQ(read("5", SIGNED), "");
}

TEST_F(Arguments, BoundedDecimalsSaturate)
{
    EXPECT_EQ(read_bounded_decimal("65534"), 65534);
    EXPECT_EQ(read_bounded_decimal("-3"), -3);
    EXPECT_EQ(read_bounded_decimal("3x"), 3);
    EXPECT_EQ(read_bounded_decimal("x"), 0);
    EXPECT_EQ(read_bounded_decimal("4294967296"), INT32_MAX);
    EXPECT_EQ(read_bounded_decimal("-4294967296"), INT32_MIN);
}

constexpr Word speed_words[] = {{"slow", 1}, {"fast", 2}, {"quick", 2}};
constexpr WordTable speeds = {"speed_type", speed_words};

TEST_F(Arguments, Words)
{
    int32_t number = 0;
    EXPECT_TRUE(read_word(session, "fast", "speed", speeds, &number));
    EXPECT_EQ(number, 2);
    EXPECT_TRUE(read_word(session, "quick", "speed", speeds, &number));
    EXPECT_EQ(number, 2);
    EXPECT_STREQ(word_of(speeds, 2), "fast"); // the first word of a value is the one that is printed
    EXPECT_STREQ(word_of(speeds, 0), "Invalid value");
    EXPECT_EQ(engine::take_output(session), "");

    number = 7;
    for (const char* text : {"", "fas", "fastest", "FAST", " fast", "fast ", "much-too-fast-for-any-buffer", "%s%n"}) {
        EXPECT_FALSE(read_word(session, text, "speed", speeds, &number)) << text;
        EXPECT_EQ(engine::take_output(session), "Error reading speed parameter (of the type speed_type), aborting\r\n");
        EXPECT_EQ(number, 7);
    }
}

TEST_F(Arguments, ShortWords)
{
    const std::string too_short = "Error reading state parameter, internal buffer is too short, aborting!\r\n";
    const std::string not_scanned = "Error reading state parameter for command from input, aborting\r\n";
    const std::string not_a_word = "Error reading state parameter (of the type enable_disable), aborting\r\n";
    const std::vector<std::pair<const char*, std::string>> cases = {
        {"enable", ""},
        {"disable", ""},
        {" enable ", ""},
        {"", not_scanned},
        {"   ", not_scanned},
        {"enabled", not_a_word},
        {"enabledis", not_a_word},
        {"enabledisa", too_short},
        {"          ", too_short},
    };
    for (const auto& [text, message] : cases) {
        int32_t number = 7;
        EXPECT_EQ(read_word(session, text, "state", enable_disable, &number), message.empty()) << text;
        EXPECT_EQ(engine::take_output(session), message) << text;
    }
}

TEST_F(Arguments, MacAddresses)
{
    struct Case {
        const char* text;
        MacResult expected;
        const char* message;
    };
    const char* wrong_length = "Error reading mac_address has wrong length, aborting\r\n";
    const char* malformed = "Error reading MAC address parameter from the MAC address string, aborting\r\n";
    const std::vector<Case> cases = {
        {"00-11-22-33-44-55", MacResult::Read, ""},
        {"", MacResult::NotAWord, "Error reading mac_address parameter for command from input, aborting\r\n"},
        {"00-11-22-33-44-555", MacResult::NotAWord, wrong_length},
        {"zz-11-22-33-44-5555", MacResult::NotAWord, wrong_length}, // length comes before any parsing
        {"00-11-22-33-44-5z", MacResult::NotAnAddress, malformed},
        {"00-11-22-33-44", MacResult::NotAnAddress, malformed},
    };
    for (const Case& c : cases) {
        const std::string text = c.text;
        uint8_t mac[6];
        EXPECT_EQ(read_mac(session, text.c_str(), "MAC address", mac), c.expected) << c.text;
        EXPECT_EQ(engine::take_output(session), c.message) << c.text;
        EXPECT_EQ(text, c.text);
    }
}

TEST_F(Arguments, TwoForms)
{
    session->olt_id = 3;
    std::string olt = "0x5";
    std::string value_text = "on";
    char* words[] = {olt.data(), value_text.data()};

    OltArguments global(session, 2, words, 2);
    int16_t olt_id = -1;
    ASSERT_TRUE(global.read_olt(&olt_id));
    EXPECT_EQ(olt_id, 5);
    EXPECT_STREQ(global.next(), "on");

    OltArguments short_form(session, 1, words + 1, 2);
    ASSERT_TRUE(short_form.read_olt(&olt_id));
    EXPECT_EQ(olt_id, 3);
    EXPECT_STREQ(short_form.next(), "on");

    olt = "x";
    OltArguments wrong(session, 2, words, 2);
    EXPECT_FALSE(wrong.read_olt(&olt_id));
    EXPECT_EQ(engine::take_output(session), "Error reading OLT_id parameter for command from input, aborting\r\n");
}

} // namespace
