// SPDX-License-Identifier: Apache-2.0
#include "olt/setting.h"

#include "CLI_GENERAL/output.h"

namespace epon {

namespace {

bool read_value(vty* session, const char* text, const SettingValue& description, int32_t* value)
{
    if (description.words != nullptr) return read_word(session, text, description.parameter, *description.words, value);
    return read_number(session, text, description.rule, value);
}

void print_value(vty* session, int16_t olt_id, const SettingValue& description, int32_t value)
{
    print_olt_id(session, olt_id);
    if (description.words != nullptr) {
        RBX_vty_out(session, "%s: %s %s", description.label, word_of(*description.words, value), VTY_NEWLINE(session));
    } else {
        RBX_vty_out(session, "%s: %d %s", description.label, static_cast<int>(value), VTY_NEWLINE(session));
    }
}

// The two arguments that every form of a link's setting begins with.
bool read_link(vty* session, char** argv, int16_t* olt_id, int16_t* llid)
{
    return read_olt_id(session, argv[0], olt_id) && read_llid(session, argv[1], llid);
}

} // namespace

int set_setting(const OltSetting& setting, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 2);
    int16_t olt_id;
    int32_t value;
    if (!arguments.read_olt(&olt_id)) return -1;
    if (!read_value(session, arguments.next(), setting.value, &value)) return -1;
    return report(session, setting.set(olt_id, value));
}

int set_setting_to(const OltSetting& setting, int32_t value, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    if (!arguments.read_olt(&olt_id)) return -1;
    return report(session, setting.set(olt_id, value));
}

int show_setting(const OltSetting& setting, vty* session, int argc, char** argv)
{
    OltArguments arguments(session, argc, argv, 1);
    int16_t olt_id;
    int32_t value;
    if (!arguments.read_olt(&olt_id)) return -1;
    const int16_t code = setting.get(olt_id, &value);
    if (code != 0) return report(session, code);
    print_value(session, olt_id, setting.value, value);
    return 0;
}

int set_setting(const LinkSetting& setting, vty* session, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int32_t value;
    if (!read_link(session, argv, &olt_id, &llid)) return -1;
    if (!read_value(session, argv[2], setting.value, &value)) return -1;
    return report(session, setting.set(olt_id, llid, value));
}

int set_setting_to(const LinkSetting& setting, int32_t value, vty* session, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    if (!read_link(session, argv, &olt_id, &llid)) return -1;
    return report(session, setting.set(olt_id, llid, value));
}

int show_setting(const LinkSetting& setting, vty* session, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    int32_t value;
    if (!read_link(session, argv, &olt_id, &llid)) return -1;
    const int16_t code = setting.get(olt_id, llid, &value);
    if (code != 0) return report(session, code);
    print_value(session, olt_id, setting.value, value);
    return 0;
}

} // namespace epon
