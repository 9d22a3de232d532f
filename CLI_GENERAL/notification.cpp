// SPDX-License-Identifier: Apache-2.0
// Lines to every session that asked for SDK events. SDK threads come here at any time, several at once.
#include "CLI_GENERAL/output.h"

namespace {

constinit thread flush_record{};

// 0 when nobody flushes. Else one thread does, and the number tells it whether others printed meanwhile.
constinit uint32_t flush_requests = 0;

vty* notified_session(unsigned int index)
{
    vty* session = __atomic_load_n(&vtyvec->sessions[index], __ATOMIC_ACQUIRE);
    if (session == nullptr || __atomic_load_n(&session->event_notify, __ATOMIC_RELAXED) == 0) return nullptr;
    return session;
}

unsigned int session_slots()
{
    return vtyvec == nullptr ? 0 : __atomic_load_n(&vtyvec->count, __ATOMIC_ACQUIRE);
}

// The record is shared, so only the thread that owns the flushing comes here.
int flush(vty* session, unsigned int index)
{
    global_thread->func = RBX_vty_flush;
    global_thread->arg = session;
    global_thread->u.fd = static_cast<int>(index);
    return RBX_thread_call(global_thread);
}

int flush_all()
{
    int result = 0;
    const unsigned int slots = session_slots();
    for (unsigned int i = 0; i < slots; ++i) {
        if (vty* session = notified_session(i)) result = flush(session, i);
    }
    return result;
}

} // namespace

constinit thread* global_thread = &flush_record;

namespace epon {

// The flush goes through one shared record, and no lock may be held while a session is written to. So one thread at a
// time owns the flushing; a thread that finds it taken prints, leaves its request and goes, and the owner flushes
// again.
int print_to_notified(const char* text, const char* end)
{
    uint32_t seen = 0;
    bool is_owner = __atomic_compare_exchange_n(&flush_requests, &seen, 1, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE);
    int result = 0;
    const unsigned int slots = session_slots();
    for (unsigned int i = 0; i < slots; ++i) {
        vty* session = notified_session(i);
        if (session == nullptr) continue;
        if (end == nullptr) {
            RBX_vty_out(session, "%s %s", text, VTY_NEWLINE(session));
        } else {
            RBX_vty_out(session, "%s%s", text, end);
        }
        if (is_owner) result = flush(session, i);
    }
    if (!is_owner) {
        if (__atomic_fetch_add(&flush_requests, 1, __ATOMIC_ACQ_REL) != 0) return 0;
        result = flush_all(); // the owner left while this thread printed
    }
    seen = 1;
    while (!__atomic_compare_exchange_n(&flush_requests, &seen, 0, false, __ATOMIC_ACQ_REL, __ATOMIC_ACQUIRE))
        result = flush_all();
    return result;
}

} // namespace epon

int CLI_print(const char* text)
{
    return epon::print_to_notified(text, nullptr);
}
