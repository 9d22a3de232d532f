// SPDX-License-Identifier: Apache-2.0
#include "console_fixture.h"

namespace {

class ManagementObject : public Console {
  protected:
    std::string parse(const char* frame, const char* slot, const char* port, const char* type)
    {
        index = {9, 9, 9, 9};
        result = Parse_object_management_index(session, frame, slot, port, type, &index);
        return engine::take_output(session);
    }
    void expect_index(unsigned int frame, unsigned int slot, unsigned int port, int32_t type)
    {
        EXPECT_EQ(result, 0);
        EXPECT_EQ(index.frame_number, frame);
        EXPECT_EQ(index.slot_number, slot);
        EXPECT_EQ(index.port_number, port);
        EXPECT_EQ(index.port_type, type);
    }

    CTC_management_object_index index{};
};

TEST_F(ManagementObject, Words)
{
    EXPECT_EQ(parse("irrelevant", "irrelevant", "irrelevant", "irrelevant"), "");
    expect_index(0, 0, 0, 0);
    EXPECT_EQ(parse("0", "all-cards", "all-ports", "ethernet"), "");
    expect_index(0, 63, 0xFFFF, 1);
    const std::pair<const char*, int32_t> types[] = {{"irrelevant", 0}, {"ethernet", 1}, {"voip", 2},
                                                     {"adsl2-plus", 3}, {"vdsl2", 4},    {"e1", 5}};
    for (const auto& [word, value] : types) {
        EXPECT_EQ(parse("1", "2", "3", word), "");
        expect_index(1, 2, 3, value);
    }
}

TEST_F(ManagementObject, Numbers)
{
    EXPECT_EQ(parse("255", "255", "65535", "e1"), "");
    expect_index(255, 255, 65535, 5);
    EXPECT_EQ(parse("0xff", "0x3e", "0xFE", "e1"), "");
    expect_index(255, 62, 254, 5);
}

TEST_F(ManagementObject, APortKeepsItsLowSixteenBits)
{
    EXPECT_EQ(parse("0", "0", "0x1FFFF", "ethernet"), "");
    expect_index(0, 0, 0xFFFF, 1);
    EXPECT_EQ(parse("0", "0", "65536", "ethernet"), "");
    expect_index(0, 0, 0, 1);
    EXPECT_EQ(parse("0", "0", "0xffffffff", "ethernet"), "");
    expect_index(0, 0, 0xFFFF, 1);
}

TEST_F(ManagementObject, Refusals)
{
    struct Case {
        const char* frame;
        const char* slot;
        const char* port;
        const char* type;
        const char* message;
    };
    const Case cases[] = {
        {"x", "0", "0", "e1", "Error reading frame_number parameter for command from input, aborting\r\n"},
        {"", "0", "0", "e1", "Error reading frame_number parameter for command from input, aborting\r\n"},
        {"all-cards", "0", "0", "e1", "Error reading frame_number parameter for command from input, aborting\r\n"},
        {"-1", "0", "0", "e1", "Error reading negative value of frame_number parameter from input, aborting\r\n"},
        {"256", "0", "0", "e1",
         "Error in range of frame_number parameter for command from input min:0 max:255, aborting\r\n"},
        {"0x100", "0", "0", "e1",
         "Error in range of frame_number parameter for command from input min:0 max:255, aborting\r\n"},
        {"0x-1", "0", "0", "e1", "Error reading frame_number parameter for command from input, aborting\r\n"},
        {"0", "1x", "0", "e1", "Error reading slot_number parameter for command from input, aborting\r\n"},
        {"0", "all-ports", "0", "e1", "Error reading slot_number parameter for command from input, aborting\r\n"},
        {"0", "-62", "0", "e1", "Error reading negative value of slot_number parameter from input, aborting\r\n"},
        {"0", "256", "0", "e1",
         "Error in range of slot_number parameter for command from input min:0 max:255, aborting\r\n"},
        {"0", "0", "port", "e1", "Error reading port_number parameter for command from input, aborting\r\n"},
        {"0", "0", "0x", "e1", "Error reading port_number parameter for command from input, aborting\r\n"},
        {"0", "0", "all-cards", "e1", "Error reading port_number parameter for command from input, aborting\r\n"},
        {"0", "0", "-1", "e1", "Error reading negative value of port_number parameter from input, aborting\r\n"},
        {"0", "0", "0", "adsl", "Error reading port_type parameter (of the type port_type), aborting\r\n"},
        {"0", "0", "0", "", "Error reading port_type parameter (of the type port_type), aborting\r\n"},
        {"0", "0", "0", "Ethernet", "Error reading port_type parameter (of the type port_type), aborting\r\n"},
    };
    for (const Case& test : cases) {
        EXPECT_EQ(parse(test.frame, test.slot, test.port, test.type), test.message);
        EXPECT_EQ(result, -1);
    }
}

// The first one that is wrong is told of.
TEST_F(ManagementObject, ReadsInOrder)
{
    EXPECT_EQ(parse("x", "x", "x", "x"), "Error reading frame_number parameter for command from input, aborting\r\n");
    EXPECT_EQ(parse("1", "x", "x", "x"), "Error reading slot_number parameter for command from input, aborting\r\n");
    EXPECT_EQ(parse("1", "1", "x", "x"), "Error reading port_number parameter for command from input, aborting\r\n");
    session->type = 1;
    EXPECT_EQ(parse("1", "1", "x", "x"), "Error reading port_number parameter for command from input, aborting\n");
}

} // namespace
