// SPDX-License-Identifier: Apache-2.0
// The console on a network of ONUs that are managed by OAM.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "console_fixture.h"

// The nodes that have the forms of a show in which the ONU is named.
inline const std::vector<int> EVERY_SHOW_NODE = {VIEW_NODE, ENABLE_NODE, CONFIG_NODE};

// ONUs 5 (10G) and 254 (1G) answer everything, ONU 6 speaks neither of the two extensions, ONU 7 leaves requests
// unanswered, ONU 9 is not authorized; 8 is not there.
class ManagedOnus : public Console {
  protected:
    ManagedOnus();

    // Brings the session into the context of an ONU, as "onu" by MAC address would.
    void enter_onu_by_mac(const char* mac);

    // A show of one ONU, without its own words: "show onu remote mac encryption-key" and "show remote mac
    // encryption-key" with the own words " index 1".
    struct Show {
        std::string global;
        std::string in_onu_node;
        std::string own;
        bool has_mac_form = true;
        std::vector<int> nodes = EVERY_SHOW_NODE;
    };
    static Show remote_show(const std::string& object, const std::string& own = "");
    static Show ctc_show(const std::string& object, const std::string& own = "");

    // Types a show about ONU 5 in all its forms and nodes: each prints this text, makes this call and returns 0.
    void expect_show(const Show& show, const std::string& text, const std::string& call);
    // Types a line that sets something: it prints nothing, makes this call and returns 0.
    void expect_set(const std::string& line, const std::string& call);
    // Types a line that the ONU refuses in its present state.
    void expect_refusal(const std::string& line, const char* words, int code, int returned = 0);
    // One keyword of a handler, "?" in words: a text of room characters does not fit, an empty one cannot be read, and
    // one that is not in the table is refused by its type. Each returns -1 and makes no call.
    void expect_keyword(cmd_handler* handler, const std::vector<std::string>& words, const std::string& name,
                        const std::string& type_name, size_t room);

    // Types a line of the ONU node for ONUs that do not answer, for an absent OLT, and with failing calls: each refusal
    // is told in words.
    void expect_remote_failures(const std::string& line, const char* operation); // they return 0
    void expect_ctc_failures(const std::string& line, const char* operation);    // they return the code

    static std::string failure(const char* words, int code);

  private:
    struct Failure {
        int16_t code;
        const char* words;
    };
    struct Family {
        Failure no_olt, no_onu;
        std::vector<Failure> injected;
        bool returns_code;
    };
    void expect_failure(const std::string& line, const Failure& told, const Family& family);
    void expect_failures(const std::string& line, const char* operation, const Family& family);
};
