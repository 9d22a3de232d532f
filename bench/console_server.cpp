// SPDX-License-Identifier: Apache-2.0
// Serves one kind of console on a free port of 127.0.0.1, which it prints, until it is killed:
//
//   console_server ours|echo|libcli|libcli-nodelay
//
// "echo" sends back what comes, and nothing can answer faster over one connection.
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <libcli.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <sys/socket.h>
#include <unistd.h>

#include "bench/consoles.h"
#include "host/engine/engine_host.h"

namespace {

[[noreturn]] void fail(const char* what)
{
    perror(what);
    exit(1);
}

void announce(unsigned port)
{
    printf("%u\n", port);
    fflush(stdout);
}

void serve_ours()
{
    engine::Options options;
    options.port = 0;
    options.host_name = "bench";
    options.socket_path = "/tmp/epon-bench-" + std::to_string(getpid());
    std::string error;
    if (!engine::prepare(options, &error)) {
        fprintf(stderr, "console_server: %s\n", error.c_str());
        exit(1);
    }
    static cmd_node view{};
    view.node = VIEW_NODE;
    view.prompt = "%s> ";
    RBX_cmd_init();
    RBX_install_node(&view, nullptr);
    auto& elements = *new bench::Elements(bench::commands(1000));
    for (cmd_element& element : elements.all)
        RBX_install_element(VIEW_NODE, &element);
    thread_master* master = RBX_thread_master_create();
    RBX_vty_init(master);
    RBX_vty_serv_sock(nullptr, 0, options.socket_path.c_str());
    unlink(options.socket_path.c_str());
    announce(engine::bound_port());
    thread work;
    while (RBX_thread_fetch(master, &work) != nullptr)
        RBX_thread_call(&work);
}

int listening_socket()
{
    int fd = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    if (fd < 0 || bind(fd, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 || listen(fd, 8) != 0)
        fail("listen");
    socklen_t size = sizeof address;
    if (getsockname(fd, reinterpret_cast<sockaddr*>(&address), &size) != 0) fail("getsockname");
    announce(ntohs(address.sin_port));
    return fd;
}

void echo(int client)
{
    char bytes[65536];
    for (ssize_t size; (size = recv(client, bytes, sizeof bytes, 0)) > 0;)
        if (send(client, bytes, static_cast<std::size_t>(size), MSG_NOSIGNAL) != size) break;
}

void serve_clients(const char* kind)
{
    int listener = listening_socket();
    cli_def* cli = nullptr;
    if (strncmp(kind, "libcli", 6) == 0) {
        cli = cli_init();
        cli_set_hostname(cli, "bench");
        bench::add_to_libcli(cli, bench::commands(1000));
    }
    for (int client; (client = accept(listener, nullptr, nullptr)) >= 0; close(client)) {
        int on = 1;
        if (strcmp(kind, "libcli") != 0) setsockopt(client, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
        if (cli != nullptr)
            cli_loop(cli, client);
        else
            echo(client);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2) return 2;
    if (strcmp(argv[1], "ours") == 0)
        serve_ours();
    else
        serve_clients(argv[1]);
    return 1;
}
