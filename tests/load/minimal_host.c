// SPDX-License-Identifier: Apache-2.0
// A host that is not ours: loads libepon_cli.so into a plain C program whose engine and SDK are the few functions
// below, starts the library as any host does, and runs one command through the element that the library installed.
// It shows that the library needs nothing but the C library and the interfaces in include/epon, and that start-up calls
// no operation of the SDK beyond those below (see unused_operations.py).
//
//   minimal_host path/to/libepon_cli.so
#include <dlfcn.h>
#include <pthread.h>
#include <semaphore.h>
#include <stdatomic.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>
#include <unistd.h>

#include <epon/cli.h>

enum { EVENT_PRINTERS = 38, CTC_HANDLERS = 5, RECORDED_LIMIT = 4096, PRESENT_OLT = 0 };

struct installed {
    int node;
    cmd_element* element;
};

static struct installed installed[RECORDED_LIMIT];
static int installed_count;
static cmd_node* nodes[NODE_ID_LIMIT];
static int node_count;
static int default_nodes;
static int registered[EVENT_KIND_LIMIT];
static int registration_count;
static int deletion_count;
static int ctc_registration_count;
static int ctc_deletion_count;
static int ctc_ends;
static int log_entries;
static char steps[16]; // of the start, a letter each
static atomic_int failures;

static void check(int good, const char* what)
{
    if (good) return;
    atomic_fetch_add(&failures, 1);
    fprintf(stderr, "minimal_host: wrong: %s\n", what);
}

static void step(char letter)
{
    size_t length = strlen(steps);
    if (length + 1 < sizeof steps && (length == 0 || steps[length - 1] != letter)) steps[length] = letter;
}

// --- The engine ------------------------------------------------------------------------------------------------

struct thread_master {
    int fetches;
};

static struct thread_master master;
static vty session_record;
static vty* session_slots[1] = {&session_record};
static vty_vector sessions = {1, session_slots};
static char printed[4096];
static size_t printed_length;
static int tables_ready;
static int sessions_ready;
static int password_asked;
static atomic_int serves;
static atomic_int works_run;
static atomic_int kills;
static sem_t parked;

vty_vector* vtyvec;
int RBX_vty_kill_all_flag;

void RBX_cmd_init(void)
{
    step('c');
    tables_ready++;
}

void RBX_install_node(cmd_node* node, int (*config_write)(vty* session))
{
    (void)config_write;
    step('n');
    check(tables_ready == 1, "a node was installed before the command tables were ready");
    check(node->node >= 0 && node->node < NODE_ID_LIMIT && nodes[node->node] == NULL,
          "a node id is out of range or twice");
    check(node->prompt != NULL && node->func == NULL && node->cmd_vector == NULL, "a node record is not as it must be");
    nodes[node->node] = node;
    node_count++;
}

void RBX_install_default(int node)
{
    check(nodes[node] != NULL, "default commands for a node that is not installed");
    default_nodes++;
}

void RBX_install_element(int node, cmd_element* element)
{
    check(nodes[node] != NULL, "a command for a node that is not installed");
    check(element->string != NULL && element->string[0] != '\0', "an element without grammar");
    check(element->func != NULL, "an element without handler");
    check(element->doc != NULL && element->doc[0] != '\0', "an element without help");
    check(element->daemon == 0 && element->attr == 0, "a hidden or deprecated element");
    check(element->strvec == NULL && element->cmdsize == 0 && element->config == NULL && element->subconfig == NULL,
          "an element with fields that are the engine's");
    check(installed_count < RECORDED_LIMIT, "more commands than the test can record");
    if (installed_count < RECORDED_LIMIT) installed[installed_count++] = (struct installed){node, element};
}

thread_master* RBX_thread_master_create(void)
{
    step('m');
    return &master;
}

static int work_done(struct thread* self)
{
    check(self->arg == &master, "work was not handed over as it was fetched");
    if (atomic_fetch_add(&works_run, 1) == 0) __atomic_store_n(&RBX_vty_kill_all_flag, 1, __ATOMIC_RELAXED);
    return 0;
}

// Two units of work, of which the first asks for the end of all sessions; then the console is to be served anew; then
// nothing more ever comes.
thread* RBX_thread_fetch(thread_master* from, thread* out)
{
    check(from == &master, "fetched from another event loop");
    int fetch = from->fetches++;
    if (fetch == 2) return NULL;
    if (fetch > 2) {
        sem_post(&parked);
        for (;;)
            pause();
    }
    *out = (thread){.func = work_done, .arg = &master, .master = from};
    return out;
}

int RBX_thread_call(thread* work)
{
    return work->func(work);
}

void RBX_vty_init(thread_master* from)
{
    step('s');
    check(from == &master, "sessions for another event loop");
    vtyvec = &sessions;
    sessions_ready++;
}

void RBX_vty_config_password(void)
{
    step('p');
    password_asked++;
}

void RBX_vty_serv_sock(const char* addr, unsigned short port, const char* path)
{
    check(addr == NULL && port == 2600 && strcmp(path, "/var/run/zebra.vty") == 0, "the console is served elsewhere");
    check(sessions_ready == 1, "served before the session layer was ready");
    atomic_fetch_add(&serves, 1);
}

void RBX_vty_kill_all(void)
{
    __atomic_store_n(&RBX_vty_kill_all_flag, 0, __ATOMIC_RELAXED);
    atomic_fetch_add(&kills, 1);
}

int RBX_vty_shell(vty* session)
{
    (void)session;
    return 0;
}

int RBX_vty_out_internal(vty* session, const char* format, va_list arguments)
{
    check(session == &session_record, "output to a session that is not there");
    int length = vsnprintf(printed + printed_length, sizeof printed - printed_length, format, arguments);
    if (length > 0 && printed_length + (size_t)length < sizeof printed) printed_length += (size_t)length;
    return length;
}

int RBX_vty_flush(thread* work)
{
    check(work->arg == &session_record && work->u.fd == 0, "a flush for a session that is not there");
    return 0;
}

static uint8_t multi_tasking = 1;
void RBX_vty_set_multi_tasking_mode(uint8_t mode)
{
    multi_tasking = mode;
}
void RBX_vty_get_multi_tasking_mode(uint8_t* mode)
{
    *mode = multi_tasking;
}

char* RBX_zstrdup(const char* text)
{
    return strdup(text);
}
void RBX_zfree(void* text)
{
    free(text);
}

char* RBX_argv_concat(char** argv, int argc, int shift)
{
    size_t size = 1;
    for (int i = shift; i < argc; i++)
        size += strlen(argv[i]) + 1;
    if (shift >= argc) return NULL;
    char* text = calloc(1, size);
    for (int i = shift; text != NULL && i < argc; i++) {
        if (i > shift) strcat(text, " ");
        strcat(text, argv[i]);
    }
    return text;
}

// --- The SDK: one OLT ------------------------------------------------------------------------------------------

void NEPLOG_print(int severity, const char* module, int level, const char* topic, int16_t olt_id, int16_t onu_id,
                  const char* format, ...)
{
    (void)olt_id, (void)onu_id;
    check(severity == NEPLOG_SEVERITY_INFO && module != NULL && level == NEPLOG_LEVEL_TRACE && topic != NULL &&
              format != NULL,
          "a log entry is not as it must be");
    log_entries++;
}

void NEPLOG_print_args(int severity, const char* file, const char* function, const char* module, int level,
                       const char* topic, int16_t olt_id, int16_t onu_id, const char* format, va_list arguments)
{
    char text[64];
    vsnprintf(text, sizeof text, format, arguments);
    check(severity == 0 && file[0] == '\0' && function[0] == '\0' && module[0] == '\0' && level == 6,
          "output without a session has another origin");
    check(strcmp(topic, "sys-dump") == 0 && olt_id == -1 && onu_id == -1, "output without a session has another name");
    check(strcmp(text, "lost 7\r\n") == 0, "output without a session is another text");
    log_entries++;
}

int16_t OSSRV_create_thread(const char* name, void* (*entry)(void*), void* argument)
{
    pthread_t id;
    step('t');
    check(name != NULL && name[0] != '\0', "a thread without a name");
    if (pthread_create(&id, NULL, entry, argument) != 0) return -1;
    pthread_detach(id);
    return 0;
}

int16_t NEP_assign_handler_function(int32_t event_kind, EventHandler handler, uint16_t* id)
{
    check(event_kind > 0 && event_kind < EVENT_KIND_LIMIT && handler != NULL, "a registration that names no event");
    registered[event_kind]++;
    *id = (uint16_t)++registration_count;
    return 0;
}

int16_t NEP_delete_handler_function(uint16_t id)
{
    (void)id;
    deletion_count++;
    return 0;
}

int16_t REMOTE_NEPONU_assign_application_handler_function(int32_t event, EventHandler handler)
{
    check(event == REMOTE_RSTP_LOOP_DETECTED && handler != NULL, "a registration that names no event of an ONU");
    return 0;
}

int16_t CTC_STACK_assign_handler_function(int32_t event_type, EventHandler handler, uint16_t* id)
{
    check(event_type >= 0 && handler != NULL, "a registration at the CTC stack that names no event");
    *id = (uint16_t)++ctc_registration_count;
    return 0;
}

int16_t CTC_STACK_delete_handler_function(uint16_t id)
{
    check(id == ++ctc_deletion_count, "the handlers of the CTC stack are not removed in their order");
    return 0;
}

int16_t CTC_STACK_terminate(void)
{
    ctc_ends++;
    return 0;
}

int32_t Olt_exists(int16_t olt_id)
{
    return olt_id == PRESENT_OLT;
}

// --- The run ---------------------------------------------------------------------------------------------------

static void* symbol(void* library, const char* name)
{
    void* address = dlsym(library, name);
    if (address == NULL) {
        fprintf(stderr, "minimal_host: %s\n", dlerror());
        exit(1);
    }
    return address;
}

static int call(void* library, const char* name)
{
    int (*function)(void);
    *(void**)&function = symbol(library, name);
    return function();
}

// Id, prompt and vtysh flag of each node; the prompts of ONU, LLID, ONU-PON and UNI nodes are left open.
static const struct {
    int node;
    const char* prompt;
    int vtysh;
} expected_nodes[] = {
    {0, "Password: ", 0},
    {1, "%s> ", 0},
    {2, "VNS CLI> ", 0},
    {3, "DEBUG CLI> ", 0},
    {4, "Password: ", 0},
    {5, "%s# ", 0},
    {6, "%s(config)# ", 1},
    {10, "%s(OLT%d)# ", 0},
    {11, "%s(OLT%d)# ", 0},
    {12, "%s(OLT%d ONU", 0},
    {13, "%s(OLT%d LLID", 0},
    {14, "%s(OLT%d LLID", 0},
    {15, "%s(OLT%d LLID-BROADCAST)# ", 0},
    {16, "%s(OLT%d LLID-BROADCAST)# ", 0},
    {17, "%s(OLT%d PON)# ", 0},
    {18, "%s(OLT%d PON)# ", 0},
    {19, "%s(OLT%d CNI)# ", 0},
    {20, "%s(OLT%d CNI)# ", 0},
    {21, "%s(OLT%d FW_CRAFT)# ", 0},
    {22, "%s(OLT%d ONU", 0},
    {23, "%s(OLT%d ONU", 0},
    {24, "%s(OLT%d DBA(Internal))# ", 0},
    {25, "%s(OLT%d DBA(Vireo))# ", 0},
};

static void check_nodes(void)
{
    for (size_t i = 0; i < sizeof expected_nodes / sizeof *expected_nodes; i++) {
        const cmd_node* node = nodes[expected_nodes[i].node];
        check(node != NULL && strcmp(node->prompt, expected_nodes[i].prompt) == 0, expected_nodes[i].prompt);
        check(node != NULL && node->vtysh == expected_nodes[i].vtysh, "a node has another vtysh flag");
    }
}

static cmd_element* find(int node, const char* grammar)
{
    for (int i = 0; i < installed_count; i++)
        if (installed[i].node == node && strcmp(installed[i].element->string, grammar) == 0)
            return installed[i].element;
    fprintf(stderr, "minimal_host: \"%s\" is not installed in node %d\n", grammar, node);
    exit(1);
}

// Runs a command of one argument on the session and keeps what it prints.
static int run(cmd_element* element, const char* word)
{
    char text[16];
    char* argv[] = {text};
    snprintf(text, sizeof text, "%s", word);
    printed_length = 0;
    printed[0] = '\0';
    session_record.buf = element->string;
    return element->func(element, &session_record, 1, argv);
}

static void run_a_command(void)
{
    cmd_element* enter = find(CONFIG_NODE, "olt OLT_INDEX");
    session_record.node = CONFIG_NODE;
    check(run(enter, "7") == 0 && session_record.node == CONFIG_NODE, "an absent OLT was entered");
    check(printed_length > 2 && strcmp(printed + printed_length - 2, "\r\n") == 0, "the refusal is not a line");
    check(run(enter, "0") == 0 && session_record.node == OLT_NODE, "the OLT was not entered");
    check(session_record.olt_id == 0, "the session has another OLT");
    check(printed_length == 0, "entering the OLT printed something");
}

static void print_without_a_session(void* library)
{
    int (*print)(vty*, const char*, ...);
    *(void**)&print = symbol(library, "RBX_vty_out");
    int entries = log_entries;
    check(print(NULL, "%s %d%s", "lost", 7, VTY_NEWLINE(NULL)) == 0, "output without a session fails");
    check(log_entries == entries + 1, "output without a session is not one entry of the SDK log");
}

static void wait_for_the_server(void)
{
    struct timespec limit;
    clock_gettime(CLOCK_REALTIME, &limit);
    limit.tv_sec += 10;
    check(sem_timedwait(&parked, &limit) == 0, "the console server thread does not run");
    check(atomic_load(&serves) == 2, "the console was not served twice");
    check(atomic_load(&works_run) == 2, "not every unit of work was run");
    check(atomic_load(&kills) == 1, "the wish to close all sessions was not followed once");
}

int main(int argc, char** argv)
{
    if (argc != 2) {
        fprintf(stderr, "usage: minimal_host path/to/libepon_cli.so\n");
        return 2;
    }
    sem_init(&parked, 0, 0);
    void* library = dlopen(argv[1], RTLD_LAZY | RTLD_GLOBAL);
    if (library == NULL) {
        fprintf(stderr, "minimal_host: %s\n", dlerror());
        return 1;
    }
    check(call(library, "init_epon_driver") == 0, "init_epon_driver failed");
    check(registration_count == EVENT_PRINTERS, "not every event has a printer");
    for (int kind = 0; kind < EVENT_KIND_LIMIT; kind++)
        check(registered[kind] <= 1, "an event has two printers");

    check(call(library, "CLI_activate") == 0, "CLI_activate failed");
    wait_for_the_server();
    check(strcmp(steps, "mcnspt") == 0, "the start takes its steps in another order");
    check(call(library, "init_packages") == 0, "init_packages failed");
    check(ctc_registration_count == CTC_HANDLERS, "not every event of the CTC stack has a handler");
    for (int node = AUTH_NODE; node < NODE_ID_LIMIT; node++)
        check((nodes[node] != NULL) == (node <= CONFIG_NODE || node >= OLT_NODE), "not every node is installed");
    check_nodes();
    check(default_nodes > 0, "no node has the engine's own commands");
    check(password_asked == 1, "the password was not loaded once");
    check(installed_count > 0, "no command is installed");
    check(log_entries > 0, "the entry points leave no trace in the SDK log");
    run_a_command();
    print_without_a_session(library);

    // A second activation must not install anything twice.
    int commands = installed_count;
    int nodes_before = node_count;
    void (*install)(void);
    *(void**)&install = symbol(library, "General_cmd_init");
    install();
    check(installed_count == commands && node_count == nodes_before, "a second start installs again");

    check(call(library, "terminate_packages") == 0, "terminate_packages failed");
    check(ctc_deletion_count == CTC_HANDLERS && ctc_ends == 1, "the CTC stack was not stopped");
    check(call(library, "terminate_epon_driver") == 0, "terminate_epon_driver failed");
    check(deletion_count > 0, "the event printers stay registered");

    printf("%d event printers, %d nodes, %d installed commands, %d log entries\n", registration_count, node_count,
           installed_count, log_entries);
    return atomic_load(&failures) == 0 ? 0 : 1;
}
