// SPDX-License-Identifier: Apache-2.0
// Settings that one command changes and another shows: a pair of commands is a row, and its handlers are one line each.
#pragma once

#include <cstdint>

#include "CLI_GENERAL/arguments.h"

namespace epon {

// What a setting's value looks like to the operator: a word of a table, or a number by a rule when words is null.
struct SettingValue {
    const char* parameter; // as refusals call it
    const char* label;     // as the answer calls it
    const WordTable* words;
    NumberRule rule;
};

// A setting of an OLT. Its global forms begin with OLT_INDEX; the short ones take the OLT from the session.
struct OltSetting {
    SettingValue value;
    int16_t (*set)(int16_t olt_id, int32_t value);
    int16_t (*get)(int16_t olt_id, int32_t* value);
};

// "... [OLT_INDEX] value"
int set_setting(const OltSetting& setting, vty* session, int argc, char** argv);
// "... [OLT_INDEX]", for commands that stand for one value ("no ...")
int set_setting_to(const OltSetting& setting, int32_t value, vty* session, int argc, char** argv);
// "... [OLT_INDEX]"
int show_setting(const OltSetting& setting, vty* session, int argc, char** argv);

// A setting of one link. Its forms begin with OLT_INDEX LLID_INDEX.
struct LinkSetting {
    SettingValue value;
    int16_t (*set)(int16_t olt_id, int16_t llid, int32_t value);
    int16_t (*get)(int16_t olt_id, int16_t llid, int32_t* value);
};

int set_setting(const LinkSetting& setting, vty* session, char** argv);
int set_setting_to(const LinkSetting& setting, int32_t value, vty* session, char** argv);
int show_setting(const LinkSetting& setting, vty* session, char** argv);

// A row whose value is a word of a table.
constexpr SettingValue word_value(const char* parameter, const char* label, const WordTable& words)
{
    return {parameter, label, &words, {}};
}

// A row whose value is a number by a rule, which also names the parameter.
constexpr SettingValue number_value(const char* label, const NumberRule& rule)
{
    return {rule.name, label, nullptr, rule};
}

} // namespace epon
