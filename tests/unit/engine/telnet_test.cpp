// SPDX-License-Identifier: Apache-2.0
// The telnet layer alone.
#include "host/engine/telnet.h"

#include <gtest/gtest.h>

using engine::Telnet;
using namespace std::string_view_literals;

TEST(Telnet, OffersEchoAndCharacterMode)
{
    EXPECT_EQ(Telnet(true).answer, "\xff\xfb\x01\xff\xfb\x03\xff\xfd\x1f"sv);
    EXPECT_EQ(Telnet(false).answer, "");
}

TEST(Telnet, TakesTextApartFromCommands)
{
    for (std::size_t piece : {1, 2, 100}) {
        Telnet telnet(true);
        telnet.answer.clear();
        std::string_view bytes = "a\xff\xfd\x01"
                                 "b\xff\xff"
                                 "c\xff\xf1\xff\xfb\x1f\xff\xfa\x1f\x00\x84\x00\x20\xff\xf0"
                                 "d\xff\xf4"sv;
        for (; !bytes.empty(); bytes.remove_prefix(std::min(piece, bytes.size())))
            ASSERT_TRUE(telnet.receive(bytes.substr(0, piece)));
        EXPECT_EQ(telnet.typed, "ab\xff"
                                "cd\x03");
        EXPECT_EQ(telnet.columns, 132U);
        EXPECT_EQ(telnet.answer, "") << "agreement needs no answer";
    }
}

TEST(Telnet, RefusesWhatItDoesNotKnowOnce)
{
    Telnet telnet(true);
    telnet.answer.clear();
    telnet.receive("\xff\xfb\x18\xff\xfd\x22\xff\xfd\x06"sv);
    EXPECT_EQ(telnet.answer, "\xff\xfe\x18\xff\xfc\x22\xff\xfc\x06"sv);
    telnet.answer.clear();
    telnet.receive("\xff\xfc\x18\xff\xfe\x22"sv);
    EXPECT_EQ(telnet.answer, "") << "a refusal is not answered, or both sides would go on for ever";
}

TEST(Telnet, EchoesWhenALocalClientAsks)
{
    Telnet telnet(false);
    EXPECT_FALSE(telnet.echo);
    telnet.receive("\xff\xfd\x01\xff\xfb\x1f\xff\xfa\x1f\x00\x50\x00\x18\xff\xf0"sv);
    EXPECT_TRUE(telnet.echo);
    EXPECT_EQ(telnet.columns, 80U);
    EXPECT_EQ(telnet.answer, "\xff\xfb\x01\xff\xfd\x1f"sv);
    telnet.receive("\xff\xfe\x01"sv);
    EXPECT_FALSE(telnet.echo);
}

TEST(Telnet, IgnoresSillyWindows)
{
    Telnet telnet(true);
    telnet.receive("\xff\xfb\x1f\xff\xfa\x1f\x00\x00\x00\x00\xff\xf0"sv);
    EXPECT_EQ(telnet.columns, 0U);
    telnet.receive("\xff\xfa\x1f\x00\x50\x00\x18\xff\xf0\xff\xfa\x1f\x10\xff\xf0"sv);
    EXPECT_EQ(telnet.columns, 80U);
    telnet.receive("\xff\xfa\x1f\xff\xff\xff\xff\x00\x00\xff\xf0"sv);
    EXPECT_EQ(telnet.columns, 0U);
}

TEST(Telnet, EndsEndlessSubnegotiations)
{
    Telnet telnet(true);
    ASSERT_TRUE(telnet.receive("\xff\xfa\x18"sv));
    ASSERT_TRUE(telnet.receive(std::string(3000, 'x')));
    EXPECT_FALSE(telnet.receive(std::string(3000, 'x')));
    EXPECT_STREQ(telnet.fault(), "telnet subnegotiation too long");
    EXPECT_FALSE(telnet.receive("show\r"sv));
    EXPECT_EQ(telnet.typed, "");
}

TEST(Telnet, LeavesLongTextAlone)
{
    Telnet telnet(true);
    EXPECT_TRUE(telnet.receive(std::string(100000, 'x')));
    EXPECT_EQ(telnet.typed.size(), 100000U);
}

TEST(Telnet, RefusesCompression)
{
    Telnet telnet(true);
    EXPECT_FALSE(telnet.receive("\xff\xfa\x56\xff\xf0show\r"sv));
    EXPECT_EQ(telnet.typed, "");
    EXPECT_STREQ(telnet.fault(), "compressed telnet is not served");
}

TEST(Telnet, SurvivesMalformedSubnegotiations)
{
    for (std::string_view data : {"\x18"sv, "\x18\x00"sv, "\x18\x07"sv, "\x27"sv, "\x27\x00"sv, "\x27\x00\x00"sv,
                                  "\x27\x00\x02"sv, "\x27\x00\x05"sv, "\x27\x00\x00\x61\x02"sv, "\x46"sv, "\x46\x01"sv,
                                  "\x46\x01\x02\x01"sv, "\x5d"sv, "\x5d\x61"sv, "\x5d\x61\x00\x00"sv, ""sv}) {
        Telnet telnet(true);
        telnet.receive("\xff\xfa" + std::string(data) + "\xff\xf0" + "a");
        EXPECT_EQ(telnet.fault(), nullptr);
        EXPECT_TRUE(telnet.typed.ends_with("a") || data.empty());
    }
}

TEST(Telnet, DoublesTheCommandByteInText)
{
    std::string out;
    engine::append_telnet_text("\xff"
                               "a\xff\xff"
                               "b",
                               &out);
    EXPECT_EQ(out, "\xff\xff"
                   "a\xff\xff\xff\xff"
                   "b");
}
