// SPDX-License-Identifier: Apache-2.0
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <epon/cli.h>

namespace {

constexpr const char* NOT_FOUND = "Error code was not found!!!";

struct Row {
    int code;
    const char* text;
};

struct Family {
    const char* name;
    const return_code_str* table;
    const char* (*lookup)(short code);
    int end_code;
    std::vector<Row> rows; // in table order
};

const std::vector<Family> families = {
    {"general",
     CLI_return_code_str,
     error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-2, "time out"},
      {-3, "not implemented"},
      {-4, "parameter error"},
      {-5, "hardware error"},
      {-6, "memory error"},
      {-1000, "pc uart error"},
      {-1001, "pc crc error"},
      {-9, "parse message error"},
      {-1003, "OLT not exist"},
      {-1004, "query failed"},
      {-1005, "not supported in current HW version"},
      {-1006, "OAM link not established"},
      {-1007, "ONU not available"},
      {-1008, "dba dll not loaded"},
      {-1009, "dba already running"},
      {-1010, "dba not running"},
      {-1011, "device version mismatch"},
      {-1012, "software version mismatch"},
      {-1013, "address table is full"},
      {-1014, "address table entry limiter is full"},
      {-1015, "software does not control the LEDS"},
      {-10, "no credit due to rate limit"},
      {-11, "no resources"},
      {-1016, "not initilaized"}}},
    {"ctc",
     CTC_STACK_CLI_return_code_str,
     ctc_stack_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-2, "time out"},
      {-3, "not implemented"},
      {-4, "parameter error"},
      {-5, "hardware error"},
      {-6, "memory error"},
      {-17003, "OLT not exist"},
      {-17001, "query failed"},
      {-17002, "ONU not available"},
      {-17005, "TFTP fail"},
      {-17004, "dba threshold"},
      {-17006, "inconsistent values returned from the ONU"},
      {-17007, "already exist"},
      {-17008, "table full"},
      {-17009, "ONU returned bad param"},
      {-17010, "ONU returned no resources"}}},
    {"internal dba",
     INTERNAL_DBA_CLI_return_code_str,
     internal_dba_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-4, "parameter error"},
      {-2, "time out"},
      {-1003, "OLT not exist"},
      {-1010, "dba not running"}}},
    {"open encryption",
     OPEN_ENCRYPTION_CLI_return_code_str,
     open_encryption_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-2, "time out"},
      {-3, "not implemented"},
      {-4, "parameter error"},
      {-5, "hardware error"},
      {-6, "memory error"},
      {-1003, "OLT not exist"},
      {-1004, "query failed"},
      {-1007, "ONU not available"}}},
    {"vireo4",
     VIREO4_CLI_return_code_str,
     vireo4_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "general error"},
      {-4, "parameter error"},
      {-1008, "dba not loaded"},
      {-2, "no communication"},
      {-1003, "OLT not exist"},
      {-1010, "dba not running"},
      {-1007, "ONU not available"}}},
    {"vireo4 dba results",
     VIREO4_CLI_dba_return_code_str,
     vireo4_dba_error_string_lookup,
     -1,
     {{0, "no error"},
      {1, "unknown llid"},
      {2, "too many llids"},
      {3, "illegal llid"},
      {4, "min value greater than max value"},
      {5, "gr + fixed total too large"},
      {6, "illegal class"},
      {10, "illegal fixed bw"},
      {7, "illegal gr bw"},
      {8, "illegal be bw"},
      {9, "illegal burst"},
      {11, "illegal fixed packet size"},
      {12, "wrong DBA type"},
      {13, "illegal DBA type"},
      {14, "unsupported DBA type"},
      {15, "illegal weight"},
      {16, "sum of weights is incorrect"},
      {17, "illegal best-effort method"},
      {18, "unsupported best-effort method"},
      {19, "illegal number of SP services"}}},
    {"remote management",
     REMOTE_MANAGEMENT_CLI_return_code_str,
     remote_management_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-2, "time out"},
      {-3, "not implemented"},
      {-4, "parameter error"},
      {-5, "hardware error"},
      {-6, "memory error"},
      {-3013, "IGMP table full"},
      {-3012, "IGMP entry exists"},
      {-13014, "query failed"},
      {-13001, "illegal size"},
      {-13002, "wrong response message id"},
      {-13003, "wrong response PDU type"},
      {-13004, "wrong response opcode id"},
      {-13005, "null pointer"},
      {-13006, "no resources"},
      {-13007, "vlan mode not configured"},
      {-13008, "bad configuration"},
      {-13009, "discard OAM"},
      {-13010, "already exist"},
      {-13011, "illegal address"},
      {-13012, "mismatch"},
      {-13013, "OLT not exist"},
      {-13014, "query failed"},
      {-13015, "ONU not available"}}},
    {"traffic management and network engine",
     TM_NE_CLI_return_code_str,
     tm_ne_error_string_lookup,
     1,
     {{0, "exit ok"},
      {-1, "exit error"},
      {-2, "time out"},
      {-3, "not implemented"},
      {-4, "parameter error"},
      {-5, "hardware error"},
      {-6, "memory error"}}},
};

// As callers with a wider code pass it: only the low 16 bits count.
const char* look_up(const Family& family, int code)
{
    return family.lookup(static_cast<short>(code));
}

TEST(ReturnCodes, TablesHoldTheirRowsInOrder)
{
    for (const Family& family : families) {
        SCOPED_TRACE(family.name);
        const return_code_str* row = family.table;
        for (const Row& expected : family.rows) {
            ASSERT_NE(row->text, nullptr);
            EXPECT_EQ(row->code, expected.code);
            EXPECT_STREQ(row->text, expected.text);
            ++row;
        }
        EXPECT_EQ(row->text, nullptr);
        EXPECT_EQ(row->code, family.end_code);
    }
}

TEST(ReturnCodes, EveryRowIsFound)
{
    for (const Family& family : families) {
        SCOPED_TRACE(family.name);
        for (const Row& row : family.rows)
            EXPECT_STREQ(look_up(family, row.code), row.text);
    }
}

TEST(ReturnCodes, EveryOtherCodeIsNotFound)
{
    for (const Family& family : families) {
        SCOPED_TRACE(family.name);
        int found = 0;
        for (int code = INT16_MIN; code <= INT16_MAX; ++code)
            found += std::string(look_up(family, code)) != NOT_FOUND;
        const bool has_a_double = std::string(family.name) == "remote management";
        EXPECT_EQ(found, static_cast<int>(family.rows.size()) - has_a_double);
    }
}

TEST(ReturnCodes, TheEndRowIsNeverMatched)
{
    EXPECT_STREQ(error_string_lookup(1), NOT_FOUND);
    EXPECT_STREQ(vireo4_dba_error_string_lookup(-1), NOT_FOUND);
}

TEST(ReturnCodes, ZeroIsOkAndMinusSevenAndOneAreUnknown)
{
    EXPECT_STREQ(error_string_lookup(0), "exit ok");
    EXPECT_STREQ(error_string_lookup(-7), NOT_FOUND);
    EXPECT_STREQ(error_string_lookup(1), NOT_FOUND);
}

TEST(ReturnCodes, OnlyTheLowSixteenBitsCount)
{
    EXPECT_STREQ(look_up(families[0], 0x1FFFF), "exit error");
    EXPECT_STREQ(look_up(families[0], 0x10000), "exit ok");
}

TEST(ReturnCodes, Ctc)
{
    EXPECT_STREQ(ctc_stack_error_string_lookup(-17003), "OLT not exist");
    EXPECT_STREQ(ctc_stack_error_string_lookup(-17011), NOT_FOUND);
}

TEST(NameTables, Alarms)
{
    const std::vector<std::string> names = {
        "ber",
        "fer",
        "sw-error",
        "local-link",
        "dying-gasp",
        "critical-event",
        "remote-stable",
        "local-stable",
        "oam-vendor-specific",
        "errored-symbol-period",
        "errored-frame",
        "errored-frame-period",
        "errored-second-summary",
        "registration-error",
        "llid-mismatch",
        "many-onus",
        "olt-port-ber",
        "device-fatal-error",
        "onu-laser-always-on",
        "onu-signal-degradation",
        "onu-eol",
        "onu-eol-database-full",
        "onu-signal-abnormal",
        "optical-module-power-supply-abnormal",
        "optical-module-temperature-abnormal",
        "optical-module-10g-tx-bias-current-abnormal",
        "optical-module-10g-tx-power-abnormal",
        "optical-module-1g-tx-bias-current-abnormal",
        "optical-module-1g-tx-power-abnormal",
        "encryption-pn",
        "onu-register-with-existing-mac",
        "host-rate-limiter-exceed",
        "ber-standard-us-major",
        "ber-standard-us-minor",
        "ber-standard-ds-major",
        "ber-siepon-us-failure",
        "ber-siepon-us-degradation",
        "ber-siepon-ds-failure",
        "ber-siepon-ds-degradation",
        "oam-link",
        "encryption-key",
        "LAST_ALARM",
    };
    ASSERT_EQ(names.size(), 42u);
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(CLI_alarm_s[i], names[i]) << i;
}

TEST(NameTables, DbaKinds)
{
    const std::vector<std::string> names = {"no-dba",   "internal",  "vireo",   "vireo2",
                                            "meridian", "aldebaran", "last-dba"};
    for (size_t i = 0; i < names.size(); ++i)
        EXPECT_EQ(CLI_dba_s[i], names[i]) << i;
}

} // namespace
