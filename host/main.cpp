// SPDX-License-Identifier: Apache-2.0
// epon-host: the command library on our own engine and a simulated network.
#include <chrono>
#include <csignal>
#include <cstdio>
#include <iostream>
#include <string>
#include <thread>

#include <CLI/CLI.hpp>

#include <epon/cli.h>

#include "host/command_list.h"
#include "host/engine/engine_host.h"
#include "host/network_values.h"
#include "host/node_rules.h"
#include "host/refusal_lines.h"
#include "host/sdk_sim/sdk_sim.h"
#include "host/secret_words.h"
#include "host/simulate.h"

namespace {

constexpr int EXIT_WRONG_START = 2;
constexpr unsigned MINUTES_LIMIT = 35791;

int refuse(const std::string& reason)
{
    std::cerr << "epon-host: " << reason << '\n';
    return EXIT_WRONG_START;
}

void print_firmware_line(const char* text)
{
    CLI_print(text);
}

bool load_network(const std::string& scenario, std::string* error)
{
    if (!scenario.empty()) return sdk_sim::load_scenario_file(scenario, error);
    return sdk_sim::load_scenario_text(sdk_sim::demo_scenario(), "demo", error);
}

// Everything that the library itself does at start, in a driver's order.
void start_console(unsigned short port)
{
    init_epon_driver();
    CLI_set_port(port);
    install_node_rules();
    install_secret_words();
    install_network_values();
    engine::set_refusal_check(is_refusal_line);
    CLI_activate();
    install_simulate_commands();
    init_packages();
}

void stop_console()
{
    engine::stop();
    terminate_packages();
    terminate_epon_driver();
    sdk_sim::stop();
}

// "10" or "10:30", minutes and seconds.
std::string read_exec_timeout(const std::string& text, engine::Options* options)
{
    unsigned minutes, seconds = 0;
    int end = 0;
    if (sscanf(text.c_str(), "%5u%n:%2u%n", &minutes, &end, &seconds, &end) < 1 ||
        static_cast<std::size_t>(end) != text.size() || minutes > MINUTES_LIMIT || seconds > 59)
        return "expected MINUTES or MINUTES:SECONDS, 0 to " + std::to_string(MINUTES_LIMIT) + " minutes";
    options->exec_timeout = std::chrono::minutes(minutes) + std::chrono::seconds(seconds);
    return {};
}

void add_login_options(CLI::App* app, engine::Options* options)
{
    auto* password = app->add_option("--password-file", options->password_file,
                                     "File with the console's one password, as a crypt(3) hash");
    app->add_option("--users", options->users_file,
                    "File of the console's users, a line name:role:hash each; roles: monitor, operator, admin")
        ->excludes(password);
    app->add_option("--enable-password-file", options->enable_password_file,
                    "File with the password that \"enable\" asks operators for, as a crypt(3) hash");
    app->add_option("--banner", options->banner_file, "File with the text that every client is shown first");
    app->add_option("--audit", options->audit,
                    "File that logins and commands are recorded in (RFC 5424); syslog, or syslog:SOCKET: "
                    "the system's log");
    for (const char* name : {"--password-file", "--users", "--enable-password-file", "--banner", "--audit"})
        app->get_option(name)->type_name("FILE");
}

void add_limit_options(CLI::App* app, engine::Options* options)
{
    options->exec_timeout = std::chrono::minutes(10);
    app->add_option_function<std::string>(
           "--exec-timeout", [](const std::string&) {}, "Close idle sessions, MINUTES or MINUTES:SECONDS; 0: never")
        ->type_name("TIME")
        ->check([options](const std::string& text) { return read_exec_timeout(text, options); })
        ->default_str("10");
    app->add_option_function<unsigned>(
           "--login-grace", [options](unsigned seconds) { options->login_grace = std::chrono::seconds(seconds); },
           "Seconds that a login may take; 0: for ever")
        ->check(CLI::Range(0, 3600))
        ->default_str("60");
    app->add_option("--max-sessions", options->max_sessions, "Sessions at a time; one is kept for the local socket")
        ->check(CLI::Range(2, 64))
        ->capture_default_str();
    app->add_option("--save-dir", options->save_directory,
                    "Directory for the answers that operators save with \"| save FILE\"; without it they cannot")
        ->type_name("FOLDER");
    app->add_option("--socket-group", options->socket_group,
                    "Group that may use the local socket, beside root and the host's own user")
        ->type_name("GROUP");
}

// Until a signal ends the host. SIGHUP reads the files again.
void serve(const sigset_t& signals)
{
    int signal = 0;
    std::string error;
    while (sigwait(&signals, &signal) == 0 && signal == SIGHUP)
        if (!engine::reload(&error)) std::cerr << "epon-host: not reloaded: " << error << '\n';
}

} // namespace

int main(int argc, char** argv)
{
    engine::Options options;
    std::string scenario;
    std::string sdk_log;
    bool only_list = false;

    CLI::App app{"Console of an EPON OLT, on a simulated network", "epon-host"};
    app.set_version_flag("--version", "epon-host 2.0");
    app.add_option("--scenario", scenario, "Network to simulate (TOML); default: an embedded demo")
        ->type_name("SCENARIO");
    app.add_option("--port", options.port, "TCP port of the console")
        ->check(CLI::Range(1, 65535))
        ->capture_default_str();
    app.add_option("--listen", options.listen_address,
                   "Address of the console's TCP port; needs --users or --password-file "
                   "unless it is a loopback address")
        ->type_name("ADDRESS")
        ->capture_default_str();
    app.add_option("--socket", options.socket_path, "Local socket of the console; default: /var/run/zebra.vty")
        ->type_name("SOCKET");
    add_login_options(&app, &options);
    add_limit_options(&app, &options);
    app.add_option("--sdk-log", sdk_log, "File that the SDK log and every SDK call are appended to; -: stderr")
        ->type_name("FILE");
    app.add_flag("--list-commands", only_list, "Print every command: node, handler and grammar, separated by tabs");
    try {
        app.parse(argc, argv);
    } catch (const CLI::Success& request) {
        return app.exit(request); // --help, --version
    } catch (const CLI::ParseError& fault) {
        return refuse(fault.what());
    }

    std::string error;
    if (!load_network(scenario, &error) || !sdk_sim::set_log(sdk_log, &error)) return refuse(error);
    options.host_name = sdk_sim::network_name();
    options.serve = !only_list;
    options.starts_closed = true;
    if (!engine::prepare(options, &error)) return refuse(error);

    // Signals are taken below, by this thread alone.
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        sigaddset(&signals, signal);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    sdk_sim::set_firmware_console(print_firmware_line);
    start_console(options.port);
    if (only_list) {
        list_commands(std::cout);
        std::cout.flush();
        stop_console();
        return std::cout ? 0 : 1;
    }
    sdk_sim::start();
    engine::open_console();
    // The console thread opens its doors in its own time.
    while (engine::served_at().empty())
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    std::cout << "epon-host: console on " << engine::served_at() << std::endl;

    serve(signals);
    stop_console();
    return 0;
}
