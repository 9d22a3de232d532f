// SPDX-License-Identifier: Apache-2.0
// Key agreement of an OLT with its links: the parameters that all links of an OLT share, those of one link, and the
// exchange of a new key.
#include "olt/mka.h"

#include <cinttypes>
#include <cstddef>
#include <cstring>
#include <iterator>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

// --- Parameters --------------------------------------------------------------------------------------------------

constexpr Word global_words[] = {
    {"mka-keep-alive-interval", MKA_KEEP_ALIVE_INTERVAL}, {"mka-keep-alive-timeout", MKA_KEEP_ALIVE_TIMEOUT},
    {"mka-retransmit-interval", MKA_RETRANSMIT_INTERVAL}, {"mka-retransmit-num", MKA_RETRANSMIT_NUM},
    {"mka-confidential-offset", MKA_CONFIDENTIAL_OFFSET}, {"mka-pn-thr", MKA_PN_THR},
};
constexpr WordTable global_parameter = {"mka_global_parameter", global_words};

constexpr Word link_words[] = {
    {"mka-enable", MKA_ENABLE},     {"mka-actor-mem-id", MKA_ACTOR_MEM_ID},
    {"mka-cak-name", MKA_CAK_NAME}, {"mka-cak", MKA_CAK},
    {"mka-kek", MKA_KEK},           {"mka-ick", MKA_ICK},
    {"mka-sci", MKA_SCI},           {"mka-key-seed", MKA_KEY_SEED},
    {"mka-sak", MKA_SAK},           {"mka-mn", MKA_MN},
};
constexpr WordTable link_parameter = {"mka_parameter", link_words};

// Each setting command takes the parameters of one kind only: neighbours in the table.
constexpr WordTable switch_parameter = {"mka_parameter", std::span(link_words).subspan(MKA_ENABLE, 1)};
constexpr WordTable octets_parameter = {"mka_parameter", std::span(link_words).subspan(MKA_ACTOR_MEM_ID, 3)};
constexpr WordTable number_parameter = {"mka_parameter", std::span(link_words).subspan(MKA_SCI, 1)};

enum class Shown { Word, Octets, Number, Identifier };

struct ShownParameter {
    const char* label;
    Shown as;
};

// By code.
constexpr const char* global_labels[] = {"mka keep alive interval", "mka keep alive timeout",
                                         "mka retransmit interval", "mka retransmit num",
                                         "mka confidential offset", "mka pn thr"};
constexpr ShownParameter link_parameters[] = {
    {"mka enable", Shown::Word},    {"mka actor mem id", Shown::Octets}, {"mka cak name", Shown::Octets},
    {"mka cak", Shown::Octets},     {"mka kek", Shown::Octets},          {"mka ick", Shown::Octets},
    {"mka sci", Shown::Identifier}, {"mka key seed", Shown::Octets},     {"mka sak", Shown::Octets},
    {"mka mn", Shown::Number},
};
static_assert(std::size(global_labels) == std::size(global_words));
static_assert(std::size(link_parameters) == std::size(link_words));

// --- Octets as hexadecimal text ----------------------------------------------------------------------------------

int digit_value(char c)
{
    if (c >= '0' && c <= '9') return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// Two digits an octet, 1 to MKA_OCTETS_MAX octets. Which length a parameter has is the SDK's to say.
bool read_octets(vty* session, const char* text, MKA_value* value)
{
    const size_t digits = strlen(text);
    bool is_read = digits != 0 && digits % 2 == 0;
    for (size_t i = 0; i < digits; ++i)
        is_read = is_read && digit_value(text[i]) >= 0;
    if (!is_read) {
        RBX_vty_out(session, "Error reading %s parameter for command from input, aborting%s", "VALUE",
                    VTY_NEWLINE(session));
        return false;
    }
    if (digits / 2 > MKA_OCTETS_MAX) {
        RBX_vty_out(session, "Error in range of %s parameter for command from input min:%d max:%d, aborting%s", "VALUE",
                    1, MKA_OCTETS_MAX, VTY_NEWLINE(session));
        return false;
    }
    value->length = static_cast<uint32_t>(digits / 2);
    for (uint32_t i = 0; i < value->length; ++i)
        value->octets[i] = static_cast<uint8_t>(digit_value(text[2 * i]) * 16 + digit_value(text[2 * i + 1]));
    return true;
}

void print_octets(vty* session, const char* label, const MKA_value& value)
{
    struct Octets {
        const uint8_t* octets;
        uint32_t length;
    };
    // The length is the device's own: the array is what bounds it.
    const Octets octets = {value.octets, value.length <= MKA_OCTETS_MAX ? value.length : uint32_t{MKA_OCTETS_MAX}};
    if (octets.length == 0) {
        RBX_vty_out(session, "%s: %s %s", label, "none", VTY_NEWLINE(session));
        return;
    }
    const Field field = {label,   FieldFormat::Bytes,      offsetof(Octets, octets), nullptr,
                         nullptr, offsetof(Octets, length)};
    print_fields(session, &octets, {&field, 1});
}

void print_value(vty* session, const ShownParameter& parameter, const MKA_value& value)
{
    const char* newline = VTY_NEWLINE(session);
    switch (parameter.as) {
    case Shown::Word:
        RBX_vty_out(session, "%s: %s %s", parameter.label, word_of(enable_disable, static_cast<int32_t>(value.number)),
                    newline);
        break;
    case Shown::Octets:
        print_octets(session, parameter.label, value);
        break;
    case Shown::Number:
        RBX_vty_out(session, "%s: %" PRIu64 " %s", parameter.label, value.number, newline);
        break;
    case Shown::Identifier:
        RBX_vty_out(session, "%s: 0x%016" PRIx64 " %s", parameter.label, value.number, newline);
        break;
    }
}

// "OLT_INDEX LLID_INDEX parameter": what the commands about a link begin with.
struct LinkParameter {
    int16_t olt_id;
    int16_t llid;
    int32_t code;
};

bool read_link_parameter(vty* session, char** argv, const WordTable& words, LinkParameter* parameter)
{
    return read_olt_id(session, argv[0], &parameter->olt_id) && read_llid(session, argv[1], &parameter->llid) &&
           read_word(session, argv[2], "param", words, &parameter->code);
}

int set_value(vty* session, const LinkParameter& parameter, const MKA_value& value)
{
    return report(session, NEP_mka_set_llid_parameter(parameter.olt_id, parameter.llid, parameter.code, &value));
}

// The words that begin every command about the parameters of an OLT.
bool read_global_parameter(vty* session, char** argv, int16_t* olt_id, int32_t* parameter)
{
    return read_olt_id(session, argv[0], olt_id) && read_word(session, argv[1], "param", global_parameter, parameter);
}

} // namespace

int start_mka_exchange_key(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int16_t llid;
    if (!read_olt_id(session, argv[0], &olt_id) || !read_llid(session, argv[1], &llid)) return -1;
    return report(session, NEP_mka_start_exchange_key(olt_id, llid));
}

int set_mka_parameter_bool(cmd_element*, vty* session, int, char** argv)
{
    LinkParameter parameter;
    int32_t state;
    if (!read_link_parameter(session, argv, switch_parameter, &parameter)) return -1;
    if (!read_word(session, argv[3], "value", enable_disable, &state)) return -1;
    MKA_value value = {};
    value.number = static_cast<uint64_t>(state);
    return set_value(session, parameter, value);
}

int set_mka_parameter_ubuf(cmd_element*, vty* session, int, char** argv)
{
    LinkParameter parameter;
    MKA_value value = {};
    if (!read_link_parameter(session, argv, octets_parameter, &parameter)) return -1;
    if (!read_octets(session, argv[3], &value)) return -1;
    return set_value(session, parameter, value);
}

int set_mka_parameter_ulong64(cmd_element*, vty* session, int, char** argv)
{
    LinkParameter parameter;
    MKA_value value = {};
    if (!read_link_parameter(session, argv, number_parameter, &parameter)) return -1;
    if (!read_unsigned_64(session, argv[3], "VALUE", &value.number)) return -1;
    return set_value(session, parameter, value);
}

// The parameters of an OLT are all numbers of 32 bits.
int set_mka_parameter_ulong(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t parameter;
    uint32_t value;
    if (!read_global_parameter(session, argv, &olt_id, &parameter)) return -1;
    if (!read_number(session, argv[2], unsigned_32("VALUE"), &value)) return -1;
    return report(session, NEP_mka_set_global_parameter(olt_id, parameter, value));
}

int show_mka_global_parameter(cmd_element*, vty* session, int, char** argv)
{
    int16_t olt_id;
    int32_t parameter;
    uint32_t value;
    if (!read_global_parameter(session, argv, &olt_id, &parameter)) return -1;
    const int16_t code = NEP_mka_get_global_parameter(olt_id, parameter, &value);
    if (code != 0) return report(session, code);
    print_olt_id(session, olt_id);
    RBX_vty_out(session, "%s: %" PRIu32 " %s", global_labels[parameter], value, VTY_NEWLINE(session));
    return 0;
}

int show_mka_parameter(cmd_element*, vty* session, int, char** argv)
{
    LinkParameter parameter;
    MKA_value value;
    if (!read_link_parameter(session, argv, link_parameter, &parameter)) return -1;
    const int16_t code = NEP_mka_get_llid_parameter(parameter.olt_id, parameter.llid, parameter.code, &value);
    if (code != 0) return report(session, code);
    print_olt_id(session, parameter.olt_id);
    print_value(session, link_parameters[parameter.code], value);
    return 0;
}

static constinit cmd_element start_mka_exchange_key_cmd =
    command("mka-exchange-key olt OLT_INDEX llid LLID_INDEX", start_mka_exchange_key,
            "Agree on a new encryption key with a link\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_mka_parameter_bool_cmd = command(
    "set mka-parameter olt OLT_INDEX llid LLID_INDEX param (mka-enable) value (enable|disable)", set_mka_parameter_bool,
    "Change a setting\n"
    "Key agreement of one link\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "A link of the OLT\n"
    "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
    "Which parameter\n"
    "mka-enable: whether keys are agreed on with the link\n"
    "The parameter's new value\n"
    "enable: keys are agreed on; disable: keys are not agreed on, and those in use are given up\n");

static constinit cmd_element set_mka_parameter_ulong_cmd = command(
    "set mka-global-parameter olt OLT_INDEX param "
    "(mka-keep-alive-interval|mka-keep-alive-timeout|mka-retransmit-interval|mka-retransmit-num|mka-confidential-"
    "offset|"
    "mka-pn-thr) value VALUE",
    set_mka_parameter_ulong,
    "Change a setting\n"
    "Key agreement of all links of an OLT\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Which parameter\n"
    "mka-keep-alive-interval: between two messages to a link, ms, 100-60000; mka-keep-alive-timeout: silence after "
    "which a link's keys are lost, ms, 100-60000; mka-retransmit-interval: between two attempts of an exchange, ms, "
    "100-60000; mka-retransmit-num: attempts, 1-10; mka-confidential-offset: octets of a frame that stay in the clear, "
    "0, 30 or 50; mka-pn-thr: packet number at which a new key is due, 1-4294967295\n"
    "The parameter's new value\n"
    "Value, decimal or with 0x hexadecimal\n");

static constinit cmd_element set_mka_parameter_ubuf_cmd =
    command("set mka-parameter olt OLT_INDEX llid LLID_INDEX param (mka-actor-mem-id|mka-cak-name|mka-cak) value VALUE",
            set_mka_parameter_ubuf,
            "Change a setting\n"
            "Key agreement of one link\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "Which parameter\n"
            "mka-actor-mem-id: the OLT's member identifier, 12 octets; mka-cak-name: name of the connectivity "
            "association key, 1-32 octets; mka-cak: the key itself, 16 or 32 octets\n"
            "The parameter's new value\n"
            "Octets as hexadecimal digits, two for each: 24, 2-64, and 32 or 64 digits\n");

static constinit cmd_element set_mka_parameter_ulong64_cmd =
    command("set mka-parameter olt OLT_INDEX llid LLID_INDEX param (mka-sci) value VALUE", set_mka_parameter_ulong64,
            "Change a setting\n"
            "Key agreement of one link\n"
            "An OLT\n"
            "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
            "A link of the OLT\n"
            "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
            "Which parameter\n"
            "mka-sci: secure channel identifier, a MAC address and a port number\n"
            "The parameter's new value\n"
            "Value of 64 bits, decimal or with 0x hexadecimal\n");

static constinit cmd_element show_mka_global_parameter_cmd = command(
    "show mka-global-parameter olt OLT_INDEX param "
    "(mka-keep-alive-interval|mka-keep-alive-timeout|mka-retransmit-interval|\t   "
    "mka-retransmit-num|mka-confidential-offset|mka-pn-thr)",
    show_mka_global_parameter,
    "Show settings and state\n"
    "Key agreement of all links of an OLT\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "Which parameter\n"
    "mka-keep-alive-interval: between two messages to a link, ms; mka-keep-alive-timeout: silence after which a "
    "link's keys are lost, ms; mka-retransmit-interval: between two attempts of an exchange, ms; "
    "mka-retransmit-num: attempts; mka-confidential-offset: octets of a frame that stay in the clear; "
    "mka-pn-thr: packet number at which a new key is due\n");

static constinit cmd_element show_mka_parameter_cmd = command(
    "show mka-parameter olt OLT_INDEX llid LLID_INDEX param "
    "(mka-enable|mka-actor-mem-id|mka-cak-name|mka-cak|mka-kek|mka-ick|\t   mka-sci|mka-key-seed|mka-sak|mka-mn)",
    show_mka_parameter,
    "Show settings and state\n"
    "Key agreement of one link\n"
    "An OLT\n"
    "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n"
    "A link of the OLT\n"
    "Index of the link, 0-254, decimal or with 0x hexadecimal\n"
    "Which parameter\n"
    "mka-enable: whether keys are agreed on; mka-actor-mem-id: the OLT's member identifier; mka-cak-name: name of the "
    "connectivity association key; mka-cak: the key itself; mka-kek: key encrypting key; mka-ick: integrity check "
    "value key; mka-sci: secure channel identifier; mka-key-seed: what the encryption key grew from; mka-sak: "
    "encryption key in use; mka-mn: number of the last message\n");

namespace epon {

void install_mka()
{
    install({{&start_mka_exchange_key_cmd, in(CONFIG_NODE)},
             {&set_mka_parameter_bool_cmd, in(CONFIG_NODE)},
             {&set_mka_parameter_ulong_cmd, in(CONFIG_NODE)},
             {&set_mka_parameter_ubuf_cmd, in(CONFIG_NODE)},
             {&set_mka_parameter_ulong64_cmd, in(CONFIG_NODE)},
             {&show_mka_global_parameter_cmd, in(CONFIG_NODE)},
             {&show_mka_parameter_cmd, in(CONFIG_NODE)}});
}

} // namespace epon
