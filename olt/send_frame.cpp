// SPDX-License-Identifier: Apache-2.0
// Sending one frame through an OLT, from a file of the host or out of the OLT's own memory, to a port and, on the PON,
// to a link or to a class of links.
#include "olt/send_frame.h"

#include <cstdlib>
#include <cstring>

#include "CLI_GENERAL/arguments.h"
#include "CLI_GENERAL/command.h"
#include "CLI_GENERAL/output.h"

using namespace epon;

namespace {

constexpr Word destination_port_words[] = {
    {"pon", FRAME_TO_PON},
    {"system", FRAME_TO_SYSTEM},
    {"sniff", FRAME_TO_SNIFF},
    {"sys-pon", FRAME_TO_SYSTEM_AND_PON},
    {"sys-sniff", FRAME_TO_SYSTEM_AND_SNIFF},
    {"sys-pon-sniff", FRAME_TO_SYSTEM_PON_AND_SNIFF},
    {"auto", FRAME_TO_AUTO},
    {"auto-no-all", FRAME_TO_AUTO_WITHOUT_ALL},
    {"auto-no-pon", FRAME_TO_AUTO_WITHOUT_PON},
    {"auto-no-sys", FRAME_TO_AUTO_WITHOUT_SYSTEM},
    {"sts-sniff", FRAME_TO_SYSTEM_AND_SNIFF}, // as two of the grammars spell it
};
constexpr WordTable destination_port = {"destination_port", destination_port_words};

constexpr Word llid_class_words[] = {{"all-1G-llid", FRAME_LLID_CLASS_ALL_1G},
                                     {"all-10G-llid", FRAME_LLID_CLASS_ALL_10G},
                                     {"anti-llid", FRAME_LLID_CLASS_ANTI}};
constexpr WordTable llid_class = {"llid_class", llid_class_words};

constexpr Word encrypt_words[] = {{"yes", 1}, {"no", 0}};
constexpr WordTable encrypt = {"encrypt", encrypt_words};

struct Request {
    int32_t destination_port;
    int16_t llid;
    int32_t llid_class;
    int32_t encrypt;
    bool is_extended; // a class of links or encryption was named
    char** frame;     // the words that say which frame
};

// "... encrypt yes": a class of links and an encryption leave the same number of arguments, and a file may have any
// name; the last but one word of the line tells.
bool names_encryption(const char* line)
{
    constexpr char KEYWORD[] = " encrypt";
    const char* last = strrchr(line, ' ');
    const ptrdiff_t length = sizeof KEYWORD - 1;
    return last != nullptr && last - line >= length && memcmp(last - length, KEYWORD, length) == 0;
}

// Port, class and encryption. frame_words is the number of words that say which frame.
bool read_request(vty* session, int argc, char** argv, int frame_words, Request* request)
{
    const int options = argc - 2 - frame_words; // besides port and link
    const bool has_encryption = options == 2 || (options == 1 && names_encryption(session->buf));
    const bool has_class = options > (has_encryption ? 1 : 0);
    *request = {0, 0, FRAME_LLID_CLASS_NONE, 0, options != 0, argv + (has_class ? 3 : 2)};
    return read_word(session, argv[0], "destination_port", destination_port, &request->destination_port) &&
           (!has_class || read_word(session, argv[2], "llid_class", llid_class, &request->llid_class)) &&
           (!has_encryption || read_word(session, argv[argc - 1], "encrypt", encrypt, &request->encrypt));
}

// The link by index, or none. On false the refusal is printed, and *result is what the handler returns.
bool read_link_by_index(vty* session, const char* text, int16_t* llid, int* result)
{
    *result = -1;
    *llid = FRAME_LLID_NOT_RELEVANT;
    return strcmp(text, "llid-not-relevant") == 0 || read_llid(session, text, llid);
}

bool read_link_by_address(vty* session, const char* text, int16_t* llid, int* result)
{
    return read_link_by_mac(session, session->olt_id, text, link_to_act_on, llid, result);
}

using LinkReader = bool(vty* session, const char* text, int16_t* llid, int* result);

int send(vty* session, const Request& request, const OLT_frame& frame)
{
    const int16_t code = request.is_extended
                             ? NEP_send_frame_ext(session->olt_id, request.destination_port, request.llid,
                                                  request.llid_class, &frame, request.encrypt)
                             : NEP_send_frame(session->olt_id, request.destination_port, request.llid, &frame);
    return report(session, code);
}

int send_file(vty* session, int argc, char** argv, LinkReader* read_link)
{
    Request request;
    int result;
    if (!read_request(session, argc, argv, 1, &request)) return -1;
    if (!read_link(session, argv[1], &request.llid, &result)) return result;
    uint8_t* octets;
    uint32_t size;
    if (CLI_load_file_to_memory(request.frame[0], &octets, &size, session) != 0) return -1;
    result = send(session, request, {octets, 0, size});
    free(octets);
    return result;
}

int send_memory(vty* session, int argc, char** argv, LinkReader* read_link)
{
    Request request;
    OLT_frame frame = {};
    int result;
    if (!read_request(session, argc, argv, 2, &request)) return -1;
    if (!read_number(session, request.frame[0], unsigned_32("MEMORY_ADDRESS"), &frame.address)) return -1;
    if (!read_number(session, request.frame[1], unsigned_16("SIZE"), &frame.size)) return -1;
    if (!read_link(session, argv[1], &request.llid, &result)) return result;
    return send(session, request, frame);
}

} // namespace

int send_frame(cmd_element*, vty* session, int argc, char** argv)
{
    return send_file(session, argc, argv, read_link_by_index);
}

int send_frame_mac(cmd_element*, vty* session, int argc, char** argv)
{
    return send_file(session, argc, argv, read_link_by_address);
}

int send_frame_memory(cmd_element*, vty* session, int argc, char** argv)
{
    return send_memory(session, argc, argv, read_link_by_index);
}

int send_frame_memory_mac(cmd_element*, vty* session, int argc, char** argv)
{
    return send_memory(session, argc, argv, read_link_by_address);
}

// The sixteen forms are made of these parts. Literals are joined by the preprocessor alone.
#define HEAD_WORDS                                                                                                     \
    "send-frame destination-port "                                                                                     \
    "(pon|system|sniff|sys-pon|sys-sniff|sys-pon-sniff|auto|auto-no-all|auto-no-pon|auto-no-sys) "
#define HEAD_HELP                                                                                                      \
    "Send a frame through this OLT\n"                                                                                  \
    "Where the frame leaves the OLT\n"                                                                                 \
    "pon: the PON; system: the system port; sniff: the sniffing port; sys-pon, sys-sniff, sys-pon-sniff: all that "    \
    "the word names; auto: as the OLT chooses by the addresses; auto-no-all: as the OLT chooses, but never all "       \
    "ports; auto-no-pon, auto-no-sys: as the OLT chooses, but not that port\n"
#define HEAD_STS_WORDS                                                                                                 \
    "send-frame destination-port "                                                                                     \
    "(pon|system|sniff|sys-pon|sts-sniff|sys-pon-sniff|auto|auto-no-all|auto-no-pon|auto-no-sys) "
#define HEAD_STS_HELP                                                                                                  \
    "Send a frame through this OLT\n"                                                                                  \
    "Where the frame leaves the OLT\n"                                                                                 \
    "pon: the PON; system: the system port; sniff: the sniffing port; sys-pon, sts-sniff, sys-pon-sniff: all that "    \
    "the word names; auto: as the OLT chooses by the addresses; auto-no-all: as the OLT chooses, but never all "       \
    "ports; auto-no-pon, auto-no-sys: as the OLT chooses, but not that port\n"
#define LINK_WORDS "(llid-not-relevant|LLID_INDEX) "
#define LINK_HELP                                                                                                      \
    "llid-not-relevant: the frame is for no link of its own; LLID_INDEX: index of the link, 0-254, decimal or with "   \
    "0x hexadecimal\n"
#define MAC_WORDS "llid-mac-address AA-BB-CC-DD-EE-FF "
#define MAC_HELP                                                                                                       \
    "Name the link by the MAC address of its ONU\n"                                                                    \
    "MAC address of the ONU, six hexadecimal fields\n"
#define CLASS_WORDS "(all-1G-llid|all-10G-llid|anti-llid) "
#define CLASS_HELP                                                                                                     \
    "all-1G-llid: for all links with a 1G downstream; all-10G-llid: for all links with a 10G downstream; "             \
    "anti-llid: for all but the link\n"
#define FILE_WORDS "file FILE_NAME"
#define FILE_HELP                                                                                                      \
    "Take the frame from a file of the host\n"                                                                         \
    "Path of the file: the bare frame from its destination address on, 14-2000 octets, without frame check sequence\n"
#define MEMORY_WORDS "memory address MEMORY_ADDRESS size SIZE"
#define MEMORY_HELP                                                                                                    \
    "Take the frame from the OLT's own memory\n"                                                                       \
    "Where the frame begins\n"                                                                                         \
    "Address, decimal or with 0x hexadecimal\n"                                                                        \
    "How long the frame is\n"                                                                                          \
    "Octets, 14-2000, decimal or with 0x hexadecimal\n"
#define ENCRYPT_WORDS " encrypt (yes|no)"
#define ENCRYPT_HELP                                                                                                   \
    "Whether the frame is encrypted\n"                                                                                 \
    "yes: with the link's key; no: in the clear\n"

static constinit cmd_element send_frame_cmd =
    command(HEAD_WORDS LINK_WORDS FILE_WORDS, send_frame, HEAD_HELP LINK_HELP FILE_HELP);

static constinit cmd_element send_frame_class_cmd =
    command(HEAD_WORDS LINK_WORDS CLASS_WORDS FILE_WORDS, send_frame, HEAD_HELP LINK_HELP CLASS_HELP FILE_HELP);

static constinit cmd_element send_frame_encrypt_cmd =
    command(HEAD_WORDS LINK_WORDS FILE_WORDS ENCRYPT_WORDS, send_frame, HEAD_HELP LINK_HELP FILE_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_class_encrypt_cmd =
    command(HEAD_WORDS LINK_WORDS CLASS_WORDS FILE_WORDS ENCRYPT_WORDS, send_frame,
            HEAD_HELP LINK_HELP CLASS_HELP FILE_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_mac_cmd =
    command(HEAD_STS_WORDS MAC_WORDS FILE_WORDS, send_frame_mac, HEAD_STS_HELP MAC_HELP FILE_HELP);

static constinit cmd_element send_frame_mac_class_cmd =
    command(HEAD_WORDS MAC_WORDS CLASS_WORDS FILE_WORDS, send_frame_mac, HEAD_HELP MAC_HELP CLASS_HELP FILE_HELP);

static constinit cmd_element send_frame_mac_encrypt_cmd = command(
    HEAD_STS_WORDS MAC_WORDS FILE_WORDS ENCRYPT_WORDS, send_frame_mac, HEAD_STS_HELP MAC_HELP FILE_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_mac_class_encrypt_cmd =
    command(HEAD_WORDS MAC_WORDS CLASS_WORDS FILE_WORDS ENCRYPT_WORDS, send_frame_mac,
            HEAD_HELP MAC_HELP CLASS_HELP FILE_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_memory_cmd =
    command(HEAD_WORDS LINK_WORDS MEMORY_WORDS, send_frame_memory, HEAD_HELP LINK_HELP MEMORY_HELP);

static constinit cmd_element send_frame_memory_class_cmd = command(
    HEAD_WORDS LINK_WORDS CLASS_WORDS MEMORY_WORDS, send_frame_memory, HEAD_HELP LINK_HELP CLASS_HELP MEMORY_HELP);

static constinit cmd_element send_frame_memory_encrypt_cmd = command(
    HEAD_WORDS LINK_WORDS MEMORY_WORDS ENCRYPT_WORDS, send_frame_memory, HEAD_HELP LINK_HELP MEMORY_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_memory_class_encrypt_cmd =
    command(HEAD_WORDS LINK_WORDS CLASS_WORDS MEMORY_WORDS ENCRYPT_WORDS, send_frame_memory,
            HEAD_HELP LINK_HELP CLASS_HELP MEMORY_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_memory_mac_cmd =
    command(HEAD_WORDS MAC_WORDS MEMORY_WORDS, send_frame_memory_mac, HEAD_HELP MAC_HELP MEMORY_HELP);

static constinit cmd_element send_frame_memory_mac_class_cmd = command(
    HEAD_WORDS MAC_WORDS CLASS_WORDS MEMORY_WORDS, send_frame_memory_mac, HEAD_HELP MAC_HELP CLASS_HELP MEMORY_HELP);

static constinit cmd_element send_frame_memory_mac_encrypt_cmd =
    command(HEAD_WORDS MAC_WORDS MEMORY_WORDS ENCRYPT_WORDS, send_frame_memory_mac,
            HEAD_HELP MAC_HELP MEMORY_HELP ENCRYPT_HELP);

static constinit cmd_element send_frame_memory_mac_class_encrypt_cmd =
    command(HEAD_WORDS MAC_WORDS CLASS_WORDS MEMORY_WORDS ENCRYPT_WORDS, send_frame_memory_mac,
            HEAD_HELP MAC_HELP CLASS_HELP MEMORY_HELP ENCRYPT_HELP);

namespace epon {

void install_send_frame()
{
    install({{&send_frame_cmd, in(OLT_NODE)},
             {&send_frame_class_cmd, in(OLT_NODE)},
             {&send_frame_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_class_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_mac_cmd, in(OLT_NODE)},
             {&send_frame_mac_class_cmd, in(OLT_NODE)},
             {&send_frame_mac_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_mac_class_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_memory_cmd, in(OLT_NODE)},
             {&send_frame_memory_class_cmd, in(OLT_NODE)},
             {&send_frame_memory_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_memory_class_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_memory_mac_cmd, in(OLT_NODE)},
             {&send_frame_memory_mac_class_cmd, in(OLT_NODE)},
             {&send_frame_memory_mac_encrypt_cmd, in(OLT_NODE)},
             {&send_frame_memory_mac_class_encrypt_cmd, in(OLT_NODE)}});
}

} // namespace epon
