// SPDX-License-Identifier: Apache-2.0
// Encryption at the ONU's end of its link: how it works, which directions, and its two keys.
#include "REMOTE_MANAGEMENT_CLI/encryption.h"

#include <cstddef>

#include "CLI_GENERAL/onu_show.h"
#include "REMOTE_MANAGEMENT_CLI/onu_report.h"

using namespace epon;

namespace {

struct Configuration {
    uint8_t mirror, bypass;
};

constexpr Field configuration_fields[] = {
    {"encryption_mirror_enable", FieldFormat::Uint8Word, offsetof(Configuration, mirror), &enable_disable_capital},
    {"encryption_bypass_enable", FieldFormat::Uint8Word, offsetof(Configuration, bypass), &enable_disable_capital},
};

int16_t get_configuration(int16_t olt_id, int16_t onu_id, Configuration* configuration)
{
    return REMOTE_NEPONU_encryption_get_configuration(olt_id, onu_id, &configuration->mirror, &configuration->bypass);
}

constexpr Word mode_words[] = {{"ae-aes", REMOTE_ENCRYPTION_AES},
                               {"triple-churning", REMOTE_ENCRYPTION_TRIPLE_CHURNING}};
constexpr WordTable modes = {"encryption_type", mode_words, room_for(mode_words)};
constexpr Field mode_fields[] = {{"mode", FieldFormat::Int32Word, 0, &modes}};

// "uplink" is none of the words that the grammar offers.
constexpr Word direction_words[] = {{"uplink", REMOTE_ENCRYPTION_UPLINK},
                                    {"downlink", REMOTE_ENCRYPTION_DOWNLINK},
                                    {"uplink-and-downlink", REMOTE_ENCRYPTION_UPLINK_DOWNLINK},
                                    {"off", REMOTE_ENCRYPTION_OFF}};
constexpr WordTable directions = {"encryption_direction", direction_words, room_for(direction_words)};
constexpr Field state_fields[] = {{"direction", FieldFormat::Int32Word, 0, &directions}};

constexpr NumberRule key_index = unsigned_range("index", 0, REMOTE_ENCRYPTION_KEYS - 1);

struct Key {
    const uint8_t* octets;
    uint32_t size;
};
constexpr Field key_fields[] = {
    {"key", FieldFormat::Bytes, offsetof(Key, octets), nullptr, nullptr, offsetof(Key, size)}};
constexpr Field active_key_fields[] = {{"index", FieldFormat::Uint8, 0}};

} // namespace

int show_remote_encryption_configuration(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, get_configuration, configuration_fields);
}

int remote_encryption_configuration(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    Configuration configuration;
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_word(session, argv[0], "encryption_mirror_enable", enable_disable, &configuration.mirror)) return -1;
    if (!read_word(session, argv[1], "encryption_bypass_enable", enable_disable, &configuration.bypass)) return -1;
    return report_remote(session, REMOTE_NEPONU_encryption_set_configuration(
                                      onu.olt_id, onu.onu_id, configuration.mirror, configuration.bypass));
}

int show_remote_encryption_mode(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_ENCRYPTION_get_mode, mode_fields);
}

int remote_encryption_mode(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "mode", modes, REMOTE_NEPONU_ENCRYPTION_set_mode);
}

int show_remote_encryption_state(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_encryption_get_state, state_fields);
}

int remote_encryption_state(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_word(session, argv[0], "direction", directions, REMOTE_NEPONU_encryption_set_state);
}

int show_remote_encryption_key(cmd_element*, vty* session, int argc, char** argv)
{
    OnuTarget onu;
    int result;
    char** words;
    uint8_t index;
    if (!read_onu_target(session, argc, argv, 1, &onu, &words, &result)) return result;
    if (!read_number(session, words[0], key_index, &index)) return -1;
    uint8_t octets[REMOTE_ENCRYPTION_KEY_SIZE] = {};
    const int16_t code = REMOTE_NEPONU_encryption_get_key(onu.olt_id, onu.onu_id, index, octets);
    const Key key = {octets, sizeof octets};
    return show_remote_record(session, code, &key, key_fields);
}

int remote_encryption_key(cmd_element*, vty* session, int, char** argv)
{
    OnuTarget onu;
    int result;
    uint8_t index;
    uint8_t key[REMOTE_ENCRYPTION_KEY_SIZE];
    if (!read_session_target(session, &onu, &result)) return result;
    if (!read_number(session, argv[0], key_index, &index)) return -1;
    if (!read_encryption_key(session, argv[1], key)) return -1;
    return report_remote(session, REMOTE_NEPONU_encryption_set_key(onu.olt_id, onu.onu_id, index, key));
}

int show_remote_encryption_active_key(cmd_element*, vty* session, int argc, char** argv)
{
    return show_remote(session, argc, argv, REMOTE_NEPONU_encryption_get_active_key, active_key_fields);
}

int remote_encryption_active_key(cmd_element*, vty* session, int, char** argv)
{
    return set_remote_number(session, argv[0], key_index, REMOTE_NEPONU_encryption_set_active_key);
}

static constinit OnuShow show_remote_encryption_configuration_cmd =
    remote_show_by_index<"mac encryption-configuration", "The ONU's end of its link\n"
                                                         "How encryption treats frames\n">(
        show_remote_encryption_configuration);

static constinit cmd_element remote_encryption_configuration_cmd =
    command("remote mac encryption-configuration mirror (disable|enable) bypass (disable|enable)",
            remote_encryption_configuration,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU's end of its link\n"
            "How encryption treats frames\n"
            "For tests: what is sent is decrypted with the key that it was encrypted with\n"
            "disable: frames are not mirrored; enable: frames are mirrored\n"
            "Frames that pass as they are, whatever the state of the encryption\n"
            "disable: no frames; enable: all frames\n");

static constinit OnuShow show_remote_encryption_mode_cmd =
    remote_show_by_index<"oam-api encryption-mode", "OAM of the ONU\n"
                                                    "Kind of encryption\n">(show_remote_encryption_mode);

static constinit cmd_element remote_encryption_mode_cmd =
    command("remote oam-api encryption-mode mode (ae-aes|triple-churning)", remote_encryption_mode,
            "Remote management: the ONU is asked by OAM\n"
            "OAM of the ONU\n"
            "Kind of encryption\n"
            "The new kind\n"
            "ae-aes: AES with keys of 128 bits; triple-churning: three keys of 24 bits, downlink only\n");

static constinit OnuShow show_remote_encryption_state_cmd =
    remote_show<"mac encryption-state", "The ONU's end of its link\n"
                                        "Directions that are encrypted\n">(show_remote_encryption_state);

static constinit cmd_element remote_encryption_state_cmd =
    command("remote mac encryption-state direction (downlink|uplink-and-downlink|off)", remote_encryption_state,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU's end of its link\n"
            "Directions that are encrypted\n"
            "The new directions\n"
            "downlink: what the OLT sends; uplink-and-downlink: both directions; off: none\n");

static constinit OnuShow show_remote_encryption_key_cmd =
    remote_show<"mac encryption-key",
                "The ONU's end of its link\n"
                "One of its two encryption keys\n",
                "index <0-1>",
                "Which key\n"
                "Number of the key, 0-1\n">(show_remote_encryption_key);

static constinit cmd_element remote_encryption_key_cmd =
    command("remote mac encryption-key index <0-1> key ENCRYPTION_KEY", remote_encryption_key,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU's end of its link\n"
            "One of its two encryption keys\n"
            "Which key\n"
            "Number of the key, 0-1\n"
            "The key itself\n"
            "128-bit key, 32 hexadecimal digits\n");

static constinit OnuShow show_remote_encryption_active_key_cmd =
    remote_show<"mac encryption-active-key", "The ONU's end of its link\n"
                                             "Which of its two encryption keys is in use\n">(
        show_remote_encryption_active_key);

static constinit cmd_element remote_encryption_active_key_cmd =
    command("remote mac encryption-active-key index <0-1>", remote_encryption_active_key,
            "Remote management: the ONU is asked by OAM\n"
            "The ONU's end of its link\n"
            "Which of its two encryption keys is in use\n"
            "Which key\n"
            "Number of the key, 0-1\n");

namespace epon {

void install_remote_encryption()
{
    install({&show_remote_encryption_configuration_cmd, &show_remote_encryption_mode_cmd,
             &show_remote_encryption_state_cmd, &show_remote_encryption_key_cmd,
             &show_remote_encryption_active_key_cmd});
    install({{&remote_encryption_configuration_cmd, in(ONU_NODE)},
             {&remote_encryption_mode_cmd, in(ONU_NODE)},
             {&remote_encryption_state_cmd, in(ONU_NODE)},
             {&remote_encryption_key_cmd, in(ONU_NODE)},
             {&remote_encryption_active_key_cmd, in(ONU_NODE)}});
}

} // namespace epon
