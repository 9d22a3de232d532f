// SPDX-License-Identifier: Apache-2.0
// Shows of one ONU in their three forms, for the CTC stack and for remote management. A show is declared once, by the
// words that name what is shown and the words behind the ONU, each with their help lines:
//
//     static constinit OnuShow show_remote_encryption_key_cmd =
//         remote_show<"mac encryption-key", "Security of the ONU's link\nOne of its two keys\n",
//                     "index <0-1>", "Which key\nNumber of the key, 0-1\n">(show_remote_encryption_key);
//
//     install({&show_remote_encryption_key_cmd}); // in SHOW_NODES, the short form in ONU_NODE
//
// is "show onu remote mac encryption-key OLT_INDEX ONU_INDEX index <0-1>", the same with "onu-mac-address
// AA-BB-CC-DD-EE-FF" in place of ONU_INDEX, and "show remote mac encryption-key index <0-1>". ctc_show makes "show ctc
// onu serial-number OLT_INDEX ONU_INDEX" and so on. Grammars and help lines are joined by the compiler; each becomes
// one constant text. The handler reads its ONU with read_onu_target.
#pragma once

#include <cstddef>
#include <initializer_list>

#include "CLI_GENERAL/command.h"

namespace epon {

// The forms of a show; one without a grammar does not exist.
struct OnuShow {
    cmd_element by_index;
    cmd_element by_mac;
    cmd_element in_onu_node;
};

// Installs the forms that name their ONU in nodes, and the short form in the ONU node.
void install(std::initializer_list<OnuShow*> shows, NodeSet nodes = SHOW_NODES);

// --- Texts joined by the compiler --------------------------------------------------------------------------------

template <size_t SIZE>
struct JoinedText {
    char text[SIZE]{};

    consteval JoinedText() = default;
    consteval JoinedText(const char (&literal)[SIZE]) // NOLINT(google-explicit-constructor): a template argument
    {
        for (size_t i = 0; i < SIZE; ++i)
            text[i] = literal[i];
    }

    static constexpr size_t LENGTH = SIZE - 1;
};

template <JoinedText... PARTS>
consteval auto join()
{
    JoinedText<(PARTS.LENGTH + ... + 1)> joined;
    char* end = joined.text;
    const auto append = [&end](const char* part) {
        while (*part != '\0')
            *end++ = *part++;
    };
    (append(PARTS.text), ...);
    return joined;
}

template <JoinedText... PARTS>
inline constexpr auto JOINED = join<PARTS...>();

// Words behind others, if there are any.
template <JoinedText WORDS>
consteval auto behind_blank()
{
    if constexpr (WORDS.LENGTH == 0) {
        return JoinedText{""};
    } else {
        return join<" ", WORDS>();
    }
}

// --- The forms ---------------------------------------------------------------------------------------------------

// How a family begins its shows.
template <JoinedText GLOBAL, JoinedText GLOBAL_HELP, JoinedText SHORT, JoinedText SHORT_HELP>
struct ShowFamily {
    // What stands before the ONU, in the forms that name it.
    template <JoinedText OBJECT>
    static constexpr auto GRAMMAR = join<GLOBAL, OBJECT, " OLT_INDEX ">();
    template <JoinedText OBJECT_HELP>
    static constexpr auto
        HELP = join<GLOBAL_HELP, OBJECT_HELP, "Index of the OLT, 0-15, decimal or with 0x hexadecimal\n">();

    template <JoinedText OBJECT, JoinedText OBJECT_HELP, JoinedText OWN, JoinedText OWN_HELP>
    static consteval cmd_element by_index(cmd_handler* handler)
    {
        return command(
            JOINED<GRAMMAR<OBJECT>, "ONU_INDEX", behind_blank<OWN>()>.text, handler,
            JOINED<HELP<OBJECT_HELP>, "Index of the ONU, 0-254, decimal or with 0x hexadecimal\n", OWN_HELP>.text);
    }

    template <JoinedText OBJECT, JoinedText OBJECT_HELP, JoinedText OWN, JoinedText OWN_HELP>
    static consteval cmd_element by_mac(cmd_handler* handler)
    {
        return command(JOINED<GRAMMAR<OBJECT>, "onu-mac-address AA-BB-CC-DD-EE-FF", behind_blank<OWN>()>.text, handler,
                       JOINED<HELP<OBJECT_HELP>, "Name the ONU by its MAC address\n",
                              "MAC address of the ONU, six hexadecimal fields\n", OWN_HELP>.text);
    }

    template <JoinedText OBJECT, JoinedText OBJECT_HELP, JoinedText OWN, JoinedText OWN_HELP>
    static consteval cmd_element in_onu_node(cmd_handler* handler)
    {
        return command(JOINED<SHORT, OBJECT, behind_blank<OWN>()>.text, handler,
                       JOINED<SHORT_HELP, OBJECT_HELP, OWN_HELP>.text);
    }
};

using CtcShow = ShowFamily<"show ctc onu ",
                           "Show settings and state\n"
                           "Management of ONUs by the CTC extension of OAM\n"
                           "One ONU\n",
                           "show ctc ",
                           "Show settings and state\n"
                           "Management of ONUs by the CTC extension of OAM\n">;

using RemoteShow = ShowFamily<"show onu remote ",
                              "Show settings and state\n"
                              "One ONU\n"
                              "Remote management: the ONU is asked by OAM\n",
                              "show remote ",
                              "Show settings and state\n"
                              "Remote management: the ONU is asked by OAM\n">;

template <JoinedText OBJECT, JoinedText OBJECT_HELP, JoinedText OWN = "", JoinedText OWN_HELP = "">
consteval OnuShow ctc_show(cmd_handler* handler)
{
    return {CtcShow::by_index<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler),
            CtcShow::by_mac<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler),
            CtcShow::in_onu_node<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler)};
}

template <JoinedText OBJECT, JoinedText OBJECT_HELP, JoinedText OWN = "", JoinedText OWN_HELP = "">
consteval OnuShow remote_show(cmd_handler* handler)
{
    return {RemoteShow::by_index<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler),
            RemoteShow::by_mac<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler),
            RemoteShow::in_onu_node<OBJECT, OBJECT_HELP, OWN, OWN_HELP>(handler)};
}

// A show of remote management whose ONU cannot be named by its MAC address.
template <JoinedText OBJECT, JoinedText OBJECT_HELP>
consteval OnuShow remote_show_by_index(cmd_handler* handler)
{
    return {RemoteShow::by_index<OBJECT, OBJECT_HELP, "", "">(handler), cmd_element{},
            RemoteShow::in_onu_node<OBJECT, OBJECT_HELP, "", "">(handler)};
}

} // namespace epon
