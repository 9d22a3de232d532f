// SPDX-License-Identifier: Apache-2.0
#include <string>

#include "CTC_STACK_CLI/identity.h"
#include "ctc_fixture.h"

namespace {

using CtcIdentity = Ctc;

constexpr const char* SERIAL_NUMBER = "vendor_id: VNS0 \r\n"
                                      "onu_model: 0x45314731 \r\n"
                                      "onu_model_string : E1G1\r\n"
                                      "onu_id: 0x02-0x00-0x00-0x00-0x00-0x05 \r\n"
                                      "hardware_version: V1.0 \r\n"
                                      "software_version: V1.0.0.0 \r\n";

TEST_F(CtcIdentity, SerialNumber)
{
    expect_report("serial-number", "CTC_STACK_get_onu_serial_number", SERIAL_NUMBER,
                  R"({vendor_id="VNS0",onu_model=1160857393,onu_id=02-00-00-00-00-05,hardware_version="V1.0",)"
                  R"(software_version="V1.0.0.0"})");
    expect_show_refusals("serial-number", "CTC_STACK_get_onu_serial_number");
}

TEST_F(CtcIdentity, FirmwareVersion)
{
    expect_report("firmware-version", "CTC_STACK_get_firmware_version_extended", "firmware_version: 1.0.0.0 \r\n",
                  R"({version="1.0.0.0"})");
    expect_show_refusals("firmware-version", "CTC_STACK_get_firmware_version_extended");
}

TEST_F(CtcIdentity, Chipset)
{
    expect_report("chipset-id", "CTC_STACK_get_chipset_id",
                  "vendor_id: EP \r\n"
                  "chip_model: 0x1001 \r\n"
                  "revision: 1 \r\n"
                  "date: (YY) 9 (MM) 1 (DD) 1 \r\n",
                  R"({vendor_id="EP",chip_model=4097,revision=1,year=9,month=1,day=1})");
    expect_show_refusals("chipset-id", "CTC_STACK_get_chipset_id");
}

TEST_F(CtcIdentity, BroadcastAddressIsNotLookedUp)
{
    enter(VIEW_NODE);
    EXPECT_EQ(type("show ctc onu chipset-id 0 onu-mac-address ff-ff-ff-ff-ff-ff"), NO_ONU);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_chipset_id(0, 4095) = -17002"});
    EXPECT_EQ(type("show ctc onu chipset-id 3 onu-mac-address ff-ff-ff-ff-ff-ff"), NO_OLT);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_chipset_id(3, 4095) = -17003"});
    // In these letters only.
    EXPECT_EQ(type("show ctc onu chipset-id 0 onu-mac-address FF-FF-FF-FF-FF-FF"),
              "There is no FF-FF-FF-FF-FF-FF mac address in the system\r\n");
    EXPECT_EQ(result, 0);
}

TEST_F(CtcIdentity, FourCharactersAreAnIndexAndFiveAnAddress)
{
    enter(VIEW_NODE);
    EXPECT_EQ(type("show ctc onu chipset-id 0 0x1f"), NO_ONU);
    EXPECT_EQ(journal(), Calls{"CTC_STACK_get_chipset_id(0, 31) = -17002"});
    EXPECT_EQ(type("show ctc onu chipset-id 0 0x01f"),
              "Error reading MAC address parameter from the MAC address string, aborting\r\n");
    EXPECT_EQ(result, 0);
    EXPECT_EQ(type("show ctc onu chipset-id 0 onu-mac-address 02-00-00-00-00-005"),
              "Error reading mac_address has wrong length, aborting\r\n");
    EXPECT_EQ(result, -1);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcIdentity, OltOutOfBoundsEndsWithABareLineFeed)
{
    enter(VIEW_NODE);
    EXPECT_EQ(type("show ctc onu chipset-id 16 1"), "Error, OLT id (16) is out of bounds. OLT range: 0 - 15\n");
    EXPECT_EQ(result, -4);
    EXPECT_EQ(journal(), Calls{});
}

TEST_F(CtcIdentity, TextsThatFillTheirRoomAndOctetsThatAreNoText)
{
    load_onu(R"(
[olt.onu.identity]
vendor_id = [0x1b, 0x63, 0xff, 0x25]
model = 0x41007f7e
hardware_version = "12345678"
software_version = "%s%n\r\n3456789012"
firmware_version = "%d%d%d\u001b[2J%d67890123456789012"
chipset_vendor = "\r\n"
chipset_model = 0xffff
chipset_revision = 255
chipset_date = 991231
)");
    enter(ENABLE_NODE);
    EXPECT_EQ(type("show ctc onu serial-number 0 5"), "OLT_id: 0 \r\nONU_id: 5 \r\n"
                                                      "vendor_id: ?c?% \r\n"
                                                      "onu_model: 0x41007f7e \r\n"
                                                      "onu_model_string : A??~\r\n"
                                                      "onu_id: 0x02-0x00-0x00-0x00-0x00-0x05 \r\n"
                                                      "hardware_version: 12345678 \r\n"
                                                      "software_version: %s%n??3456789012 \r\n");
    EXPECT_EQ(type("show ctc onu firmware-version 0 5"),
              "OLT_id: 0 \r\nONU_id: 5 \r\nfirmware_version: %d%d%d?[2J%d67890123456789012 \r\n");
    EXPECT_EQ(type("show ctc onu chipset-id 0 5"), "OLT_id: 0 \r\nONU_id: 5 \r\n"
                                                   "vendor_id: ?? \r\n"
                                                   "chip_model: 0xffff \r\n"
                                                   "revision: 255 \r\n"
                                                   "date: (YY) 99 (MM) 12 (DD) 31 \r\n");
}

TEST_F(CtcIdentity, WhatAnOnuIsFollowsFromItsRate)
{
    enter(ENABLE_NODE);
    EXPECT_NE(type("show ctc onu serial-number 0 10").find("onu_model_string : EXGX\r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu serial-number 0 11").find("onu_model_string : EXG1\r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu serial-number 0 11").find("vendor_id: EPON \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu chipset-id 0 10").find("chip_model: 0x1011 \r\n"), std::string::npos);
    EXPECT_NE(type("show ctc onu chipset-id 0 11").find("date: (YY) 12 (MM) 1 (DD) 1 \r\n"), std::string::npos);
}

} // namespace
