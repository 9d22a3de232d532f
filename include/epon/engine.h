/* SPDX-License-Identifier: Apache-2.0 */
/*
 * What the command library needs from the command-line engine that hosts it.
 *
 * The engine owns sessions, matching, help and the console server; the library owns the commands. Everything
 * declared here is left undefined in libepon_cli.so and is resolved in the process that loads it.
 *
 * Threads: the installers and every handler run on the console server thread. RBX_vty_out_internal,
 * RBX_thread_call with RBX_vty_flush, and walking vtyvec must be safe from any thread, because SDK events print
 * from the SDK's own threads.
 */
#ifndef EPON_ENGINE_H
#define EPON_ENGINE_H

#include <stdarg.h>
#include <stdint.h>

#if defined(__GNUC__)
#define EPON_PRINTF(format_index, first_argument) __attribute__((format(printf, format_index, first_argument)))
#else
#define EPON_PRINTF(format_index, first_argument)
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Command nodes. Ids 7 to 9 are not used. */
enum {
    AUTH_NODE = 0,
    VIEW_NODE = 1,
    VELORA_NODE = 2,
    VELORA_DEBUG_NODE = 3,
    AUTH_ENABLE_NODE = 4,
    ENABLE_NODE = 5,
    CONFIG_NODE = 6,
    OLT_NODE = 10,
    NEP5400_OLT_NODE = 11,
    ONU_NODE = 12,
    LLID_NODE = 13,
    NEP5400_LLID_NODE = 14,
    BC_LLID_NODE = 15,
    NEP5400_BC_LLID_NODE = 16,
    OLT_PON_NODE = 17,
    NEP5400_OLT_PON_NODE = 18,
    CNI_NODE = 19,
    NEP5400_CNI_NODE = 20,
    OLT_FW_CRAFT_NODE = 21,
    ONU_PON_NODE = 22,
    UNI_NODE = 23,
    DBA_INTERNAL_NODE = 24,
    DBA_VIREO4_NODE = 25,
    ONU_CLI_NODE = 26,
    NODE_ID_LIMIT = 27 /* one more than the highest node id */
};

enum { VTY_TYPE_TERMINAL = 0 };  /* vty.type of a terminal session; every other value is a plain byte stream */
enum { BROADCAST_LLID = 0xFFF }; /* vty.llid while the session is in the broadcast-LLID node */
enum { VTY_MAC_TEXT_SIZE = 1024 };

/*
 * One session. The engine allocates it and guarantees that it stays readable for the life of the process, so that
 * an SDK thread that found it in vtyvec never touches freed memory. The engine may keep more behind these fields.
 */
typedef struct vty {
    int type; /* VTY_TYPE_TERMINAL or not; chooses the line end */
    int node; /* current node id; written by node-entry handlers */
    int fd;   /* the engine's descriptor of the session, -1 when it has none */
    /* The command line being executed, NUL-terminated: keywords and alternatives in full, however short they were
     * typed, other words as typed, one blank between words. Never null while a handler runs. */
    const char* buf;
    int16_t olt_id;                  /* current OLT, set with OLT_NODE and kept below it */
    int16_t llid;                    /* current LLID; BROADCAST_LLID in BC_LLID_NODE */
    int16_t onu_id;                  /* current ONU, set with ONU_NODE */
    char onu_mac[VTY_MAC_TEXT_SIZE]; /* MAC text as typed when the ONU or LLID was entered by address */
    uint8_t onu_by_index;            /* 1: entered by index; any other value: the target comes from onu_mac */
    uint8_t event_notify;            /* 1: SDK event lines are printed here; read by SDK threads (atomically) */
    uint8_t event_notify_saved;      /* event_notify as it was before "fw-craft" */
} vty;

/* Open sessions: count slots, each a session or null. Slots change while SDK threads read them: load them atomically.
 */
typedef struct vty_vector {
    unsigned int count;
    vty** sessions;
} vty_vector;

/* A command handler. argv holds one word for each matched variable, range or alternative, in grammar order.
 * Returns 0, a negative code of the handler's own, or the SDK's return code. */
typedef struct cmd_element cmd_element;
typedef int cmd_handler(cmd_element* self, vty* session, int argc, char** argv);

/* One command: grammar, handler and help. 36 bytes on a 32-bit board. */
struct cmd_element {
    const char* string; /* grammar */
    cmd_handler* func;
    const char* doc; /* one help line per grammar word, each ended by "\n" */
    int32_t daemon;  /* 0 */
    void* strvec;    /* the engine's parsed words; null until installed */
    int32_t cmdsize; /* number of words; 0 until installed */
    char* config;    /* engine-owned */
    void* subconfig; /* engine-owned */
    int32_t attr;    /* 0: neither hidden nor deprecated */
};

/* One node: id and prompt. "%s" in a prompt is the host's name, "%d" the session's OLT; a prompt that ends after the
 * OLT number ("%s(OLT%d ONU") is completed by the engine. */
typedef struct cmd_node {
    int node;
    const char* prompt;
    int vtysh;
    int (*func)(vty* session); /* engine-owned */
    void* cmd_vector;          /* engine-owned */
} cmd_node;

/* A unit of work of the event loop. */
typedef struct thread_master thread_master;
typedef struct thread {
    int (*func)(struct thread* self);
    void* arg;
    union {
        int fd;  /* descriptor, or a session's index in vtyvec for RBX_vty_flush */
        int val; /* value of a timer or an event */
    } u;
    thread_master* master;
} thread;

/* --- Command tables ------------------------------------------------------------------------------------------- */

/* Prepares the command tables; called once, before any install. */
void RBX_cmd_init(void);
/* Registers a node. config_write prints the node's configuration, or is null. The record must outlive the engine. */
void RBX_install_node(cmd_node* node, int (*config_write)(vty* session));
/* Installs the engine's own commands (exit, end, quit, help, list, ...) in a node. */
void RBX_install_default(int node);
/* Parses the element's grammar and adds it to a node. One element may be installed in several nodes; a second
 * installation in the same node is ignored. The record must outlive the engine. */
void RBX_install_element(int node, cmd_element* element);

/* --- Event loop ----------------------------------------------------------------------------------------------- */

/* Creates the event loop; the engine keeps it for the life of the process. */
thread_master* RBX_thread_master_create(void);
/* Waits for the next unit of work and copies it to *out. Returns out, or null when the console is to be served anew. */
thread* RBX_thread_fetch(thread_master* master, thread* out);
/* Runs work->func(work) and returns its result. Any thread. */
int RBX_thread_call(thread* work);

/* --- Sessions ------------------------------------------------------------------------------------------------- */

extern vty_vector* vtyvec; /* null until RBX_vty_init */

void RBX_vty_init(thread_master* master);
/* Loads the console's password, if the host configured one. */
void RBX_vty_config_password(void);
/* Serves sessions on a TCP port and a local socket; addr null means the host's default address. A repeated call
 * with the same values changes nothing. */
void RBX_vty_serv_sock(const char* addr, unsigned short port, const char* path);
/* Closes every session; called by the server loop when RBX_vty_kill_all_flag is set, which it clears. */
void RBX_vty_kill_all(void);
extern int RBX_vty_kill_all_flag; /* set by any thread (atomically) */
/* 1 when the session is a shell of the host rather than an operator's terminal. */
int RBX_vty_shell(vty* session);
/* Formatted output to one session: bytes queued, or -1 when the session is closed. Never blocks. Any thread. */
int RBX_vty_out_internal(vty* session, const char* format, va_list arguments) EPON_PRINTF(2, 0);
/* Sends what is queued for the session in work->arg. Any thread. */
int RBX_vty_flush(thread* work);
/* 1: several sessions may be in configuration nodes at a time (default); 0: one. */
void RBX_vty_set_multi_tasking_mode(uint8_t mode);
void RBX_vty_get_multi_tasking_mode(uint8_t* mode);

/* --- Text ----------------------------------------------------------------------------------------------------- */

/* Joins argv[shift..argc) with blanks into a string that the caller frees with RBX_zfree. Null when nothing is left. */
char* RBX_argv_concat(char** argv, int argc, int shift);
char* RBX_zstrdup(const char* text);
void RBX_zfree(void* text);

#ifdef __cplusplus
}
#endif

#endif
