// SPDX-License-Identifier: Apache-2.0
// Records that cross the border of the library lie in memory as the engine and the SDK of the board expect them.
#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <iterator>

#include <gtest/gtest.h>

#include <epon/cli.h>

namespace {

constexpr bool IS_BOARD = sizeof(void*) == 4;
constexpr std::size_t POINTER = sizeof(void*);

struct Field {
    const char* name;
    std::size_t offset;
    std::size_t size;
};
#define FIELD(record, name)                                                                                            \
    Field                                                                                                              \
    {                                                                                                                  \
#name, offsetof(record, name), sizeof(record::name)                                                            \
    }

// Each field directly behind the one before it, from the start.
void expect_no_gaps(std::initializer_list<Field> fields, std::size_t size)
{
    std::size_t at = 0;
    for (const Field& field : fields) {
        EXPECT_EQ(field.offset, at) << field.name;
        at = field.offset + field.size;
    }
    EXPECT_EQ(at, size);
}

// --- Command elements and nodes ---------------------------------------------------------------------------------

static_assert(!IS_BOARD || sizeof(cmd_element) == 36);

TEST(RecordLayout, CommandElementHasItsNineFieldsInOrder)
{
    constexpr std::size_t offsets[] = {
        offsetof(cmd_element, string), offsetof(cmd_element, func),      offsetof(cmd_element, doc),
        offsetof(cmd_element, daemon), offsetof(cmd_element, strvec),    offsetof(cmd_element, cmdsize),
        offsetof(cmd_element, config), offsetof(cmd_element, subconfig), offsetof(cmd_element, attr)};
    for (std::size_t i = 0; i < std::size(offsets); i++)
        EXPECT_EQ(offsets[i], i * POINTER); // 32-bit numbers begin where a pointer would
    EXPECT_EQ(sizeof(cmd_element), std::size(offsets) * POINTER);
}

TEST(RecordLayout, NodeRecordHasItsFiveFieldsInOrder)
{
    EXPECT_EQ(offsetof(cmd_node, node), 0U);
    EXPECT_EQ(offsetof(cmd_node, prompt), POINTER);
    EXPECT_EQ(offsetof(cmd_node, vtysh), 2 * POINTER);
    EXPECT_EQ(offsetof(cmd_node, func), 3 * POINTER);
    EXPECT_EQ(offsetof(cmd_node, cmd_vector), 4 * POINTER);
}

// --- Return codes -----------------------------------------------------------------------------------------------

static_assert(!IS_BOARD || sizeof(return_code_str) == 8);
static_assert(sizeof(return_code_str::code) == 4);

TEST(RecordLayout, ReturnCodesAre16BitNumbersInSlotsOf32)
{
    EXPECT_EQ(offsetof(return_code_str, code), 0U);
    EXPECT_EQ(offsetof(return_code_str, text), POINTER);
    for (const return_code_str* table :
         {CLI_return_code_str, CTC_STACK_CLI_return_code_str, INTERNAL_DBA_CLI_return_code_str,
          OPEN_ENCRYPTION_CLI_return_code_str, VIREO4_CLI_return_code_str, VIREO4_CLI_dba_return_code_str,
          REMOTE_MANAGEMENT_CLI_return_code_str, TM_NE_CLI_return_code_str}) {
        const return_code_str* row = table;
        for (; row->text != nullptr; row++)
            EXPECT_EQ(row->code, static_cast<int16_t>(row->code)) << row->text;
        EXPECT_EQ(row->code, table == VIREO4_CLI_dba_return_code_str ? -1 : 1);
    }
}

// --- Settings of an OLT -----------------------------------------------------------------------------------------

static_assert(sizeof(OLT_update_parameters) == 48);

TEST(RecordLayout, SettingsOfAnOltHaveNoGapsOnAnyMachine)
{
    using Record = OLT_update_parameters;
    expect_no_gaps({FIELD(Record, min_rtt), FIELD(Record, max_rtt), FIELD(Record, grant_filtering),
                    FIELD(Record, reserved_4), FIELD(Record, vendor_specific_1g), FIELD(Record, vendor_specific_10g),
                    FIELD(Record, reserved_7), FIELD(Record, oui_1g), FIELD(Record, oui_10g),
                    FIELD(Record, uart_baud_rate), FIELD(Record, llid_assignment), FIELD(Record, sled_strobe),
                    FIELD(Record, sled_mute), FIELD(Record, i2c_speed)},
                   sizeof(Record));
    EXPECT_EQ(sizeof(Record::min_rtt), 4U);
    EXPECT_EQ(sizeof(Record::grant_filtering), 2U);
    EXPECT_EQ(sizeof(Record::reserved_4), 2U);
    EXPECT_EQ(sizeof(Record::sled_mute), 2U);
    EXPECT_EQ(offsetof(OLT_parameters, mac), sizeof(Record));
}

} // namespace
