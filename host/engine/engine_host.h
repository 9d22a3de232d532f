// SPDX-License-Identifier: Apache-2.0
// What the engine offers to the host process that loads it, beside the RBX_* interface of the command library.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include <epon/engine.h>

#include "host/engine/command_tree.h"

namespace engine {

// --- Before the console is activated -----------------------------------------------------------------------------

struct Options {
    std::string host_name = "epon";           // "%s" of the prompts
    std::string listen_address = "127.0.0.1"; // used when RBX_vty_serv_sock is given no address
    std::uint16_t port = 2600;                // bound by prepare; adopted by RBX_vty_serv_sock with the same port
    std::string socket_path;                  // local socket; empty: the path that the library asks for
    std::string password_file;                // one crypt(3) hash on its first line; empty: no login
    std::string users_file;                   // lines "name:role:hash", see users.cpp; instead of password_file
    std::string enable_password_file;         // one crypt(3) hash; empty: "enable" asks nothing
    std::string banner_file;                  // shown to every client first
    std::string audit;          // file of the audit record, "syslog" or "syslog:SOCKET"; empty: none is kept
    std::string socket_group;   // group that may use the local socket beside root and the host's user
    std::string save_directory; // where "| save FILE" makes its files; empty: nothing is saved

    unsigned max_sessions = 64;                   // one of them is kept for the local socket
    std::chrono::milliseconds exec_timeout{0};    // how long an operator may type nothing; 0: for ever
    std::chrono::milliseconds login_grace{60000}; // how long a login may take; 0: for ever
    std::chrono::milliseconds login_delay{1000};  // a source's first wrong password waits that long, the next doubly

    // false: prepare binds nothing, RBX_vty_serv_sock opens nothing and RBX_thread_fetch parks; for listing the
    // commands and for tests with memory sessions only.
    bool serve = true;
    // true: the console thread waits for open_console() before it serves, so that the host can install commands until
    // then.
    bool starts_closed = false;
};

// Checks the options, loads passwords and banner, opens the audit record and binds the TCP port, so that nothing is
// half-started when one of them is wrong. False with one clear line in *error.
bool prepare(const Options& options, std::string* error);
// The TCP port that is bound: the one that was asked for, or the free one that was found for port 0. 0 when none is.
std::uint16_t bound_port();

// An argument that nobody may read later: it is replaced in history and audit.
struct SecretWord {
    std::string_view word;    // a keyword, in full
    std::size_t distance = 1; // how many words behind it the secret stands
};
void set_secret_words(std::span<const SecretWord> words);

// What the engine must know of a node and the node record does not say.
struct NodeRules {
    int node;
    int parent; // where "exit" leads; -1: it closes the session
    // What the node is called where a command of it is typed elsewhere: "the enable node". null: it is not mentioned.
    const char* title = nullptr;
    // Completes a prompt that ends after the OLT number; appends to *prompt. May be null.
    void (*prompt_tail)(const vty& session, std::string* prompt) = nullptr;
    // Takes a typed line instead of the node's commands; leave words ("exit", "end", "quit", "logout") stay the
    // engine's. May be null.
    int (*raw_line)(vty* session, const char* line) = nullptr;
    const char* raw_help = nullptr; // what "?" says in a raw node
    // Called when a session leaves the node by a leave word or by closing. May be null.
    void (*leave)(vty* session) = nullptr;
};
void set_node_rules(const NodeRules& rules);

// Adds a command of the host's own.
void install_host_element(int node, cmd_element* element);

// Every element of the given origin, by node id and order of installation.
void for_each_element(Origin origin, const std::function<void(int node, const cmd_element&)>& visit);

// Tells whether a printed line says that its command was refused, although the handler returned 0; for programs in
// machine mode and for filters. null: no line says so.
void set_refusal_check(bool (*check)(std::string_view line));

// A word that an operator is about to type, and what the host knows of it.
struct ValueQuestion {
    struct Word {
        std::string_view form; // the grammar's word: "OLT_INDEX"
        std::string_view typed;
    };
    const vty& session;
    std::string_view form;
    std::span<const Word> before; // all words before it
};
struct LiveValue {
    std::string word; // printable, without blanks
    std::string help; // what it stands for
};
// Tells the values that exist now for a word of a grammar, in the order in which they are to be listed; none when there
// is nothing to tell. Called on the console thread for "?" and completion, so it must not wait. null: nobody tells.
using ValueSource = void (*)(const ValueQuestion& question, std::vector<LiveValue>* values);
void set_value_source(ValueSource source);

// --- While the console is served ----------------------------------------------------------------------------------

// Lets the console thread serve, when the options made it wait. Nothing may be installed after it.
void open_console();

// "127.0.0.1 port 2600 and /var/run/epon.sock", once served; empty before.
std::string served_at();

// Reads users, passwords and banner again and opens the audit record anew. What cannot be read stays as it was; false
// then, with one clear line in *error. Sessions of users who are no longer named are closed. Any thread.
bool reload(std::string* error);

// Asks the console thread to close every session; the console is then served anew. Any thread. Sessions without a
// connection stay.
void kill_all();

// Closes every session and parks the console thread for good. Returns when it is parked; at
// once when none runs or the console thread itself calls, which is then parked after the work at hand.
void stop();

// --- Sessions without a connection, for tests and scripts ---------------------------------------------------------

struct Outcome {
    MatchStatus status;                   // Matched when a handler ran
    int result = 0;                       // what it returned
    const cmd_element* element = nullptr; // the command that ran
    bool told_failure = false;            // it printed that it refused, whatever it returned
};

// A session in the view node whose output is kept; no prompt, no echo. The calling thread acts as console thread: no
// other thread may run commands at the same time. Null when the pool is empty.
vty* open_memory_session(int type = VTY_TYPE_TERMINAL);
// Runs one line as if it had been typed.
Outcome execute(vty* session, std::string_view line);
// All output since the last call, events included.
std::string take_output(vty* session);
std::string prompt(const vty* session);
void close_session(vty* session);

} // namespace engine
