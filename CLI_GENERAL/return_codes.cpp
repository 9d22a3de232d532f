// SPDX-License-Identifier: Apache-2.0
// Return codes of the SDK in words, one table for each family. The first row with the code counts.
#include <epon/cli.h>

constinit const return_code_str CLI_return_code_str[] = {
    {0, "exit ok"},
    {-1, "exit error"},
    {-2, "time out"},
    {-3, "not implemented"},
    {-4, "parameter error"},
    {-5, "hardware error"},
    {-6, "memory error"},
    {-1000, "pc uart error"},
    {-1001, "pc crc error"},
    {-9, "parse message error"},
    {-1003, "OLT not exist"},
    {-1004, "query failed"},
    {-1005, "not supported in current HW version"},
    {-1006, "OAM link not established"},
    {-1007, "ONU not available"},
    {-1008, "dba dll not loaded"},
    {-1009, "dba already running"},
    {-1010, "dba not running"},
    {-1011, "device version mismatch"},
    {-1012, "software version mismatch"},
    {-1013, "address table is full"},
    {-1014, "address table entry limiter is full"},
    {-1015, "software does not control the LEDS"},
    {-10, "no credit due to rate limit"},
    {-11, "no resources"},
    {-1016, "not initilaized"}, // operators' scripts look for this spelling
    {1, nullptr},
};

constinit const return_code_str CTC_STACK_CLI_return_code_str[] = {
    {0, "exit ok"},
    {-1, "exit error"},
    {-2, "time out"},
    {-3, "not implemented"},
    {-4, "parameter error"},
    {-5, "hardware error"},
    {-6, "memory error"},
    {-17003, "OLT not exist"},
    {-17001, "query failed"},
    {-17002, "ONU not available"},
    {-17005, "TFTP fail"},
    {-17004, "dba threshold"},
    {-17006, "inconsistent values returned from the ONU"},
    {-17007, "already exist"},
    {-17008, "table full"},
    {-17009, "ONU returned bad param"},
    {-17010, "ONU returned no resources"},
    {1, nullptr},
};

constinit const return_code_str INTERNAL_DBA_CLI_return_code_str[] = {
    {0, "exit ok"},   {-1, "exit error"},       {-4, "parameter error"},
    {-2, "time out"}, {-1003, "OLT not exist"}, {-1010, "dba not running"},
    {1, nullptr},
};

constinit const return_code_str OPEN_ENCRYPTION_CLI_return_code_str[] = {
    {0, "exit ok"},          {-1, "exit error"},           {-2, "time out"},     {-3, "not implemented"},
    {-4, "parameter error"}, {-5, "hardware error"},       {-6, "memory error"}, {-1003, "OLT not exist"},
    {-1004, "query failed"}, {-1007, "ONU not available"}, {1, nullptr},
};

constinit const return_code_str VIREO4_CLI_return_code_str[] = {
    {0, "exit ok"},
    {-1, "general error"},
    {-4, "parameter error"},
    {-1008, "dba not loaded"},
    {-2, "no communication"},
    {-1003, "OLT not exist"},
    {-1010, "dba not running"},
    {-1007, "ONU not available"},
    {1, nullptr},
};

// Results of the DBA algorithm itself; 10 stands before 7.
constinit const return_code_str VIREO4_CLI_dba_return_code_str[] = {
    {0, "no error"},
    {1, "unknown llid"},
    {2, "too many llids"},
    {3, "illegal llid"},
    {4, "min value greater than max value"},
    {5, "gr + fixed total too large"},
    {6, "illegal class"},
    {10, "illegal fixed bw"},
    {7, "illegal gr bw"},
    {8, "illegal be bw"},
    {9, "illegal burst"},
    {11, "illegal fixed packet size"},
    {12, "wrong DBA type"},
    {13, "illegal DBA type"},
    {14, "unsupported DBA type"},
    {15, "illegal weight"},
    {16, "sum of weights is incorrect"},
    {17, "illegal best-effort method"},
    {18, "unsupported best-effort method"},
    {19, "illegal number of SP services"},
    {-1, nullptr},
};

constinit const return_code_str REMOTE_MANAGEMENT_CLI_return_code_str[] = {
    {0, "exit ok"},
    {-1, "exit error"},
    {-2, "time out"},
    {-3, "not implemented"},
    {-4, "parameter error"},
    {-5, "hardware error"},
    {-6, "memory error"},
    {-3013, "IGMP table full"},
    {-3012, "IGMP entry exists"},
    {-13014, "query failed"},
    {-13001, "illegal size"},
    {-13002, "wrong response message id"},
    {-13003, "wrong response PDU type"},
    {-13004, "wrong response opcode id"},
    {-13005, "null pointer"},
    {-13006, "no resources"},
    {-13007, "vlan mode not configured"},
    {-13008, "bad configuration"},
    {-13009, "discard OAM"},
    {-13010, "already exist"},
    {-13011, "illegal address"},
    {-13012, "mismatch"},
    {-13013, "OLT not exist"},
    {-13014, "query failed"}, // stands twice
    {-13015, "ONU not available"},
    {1, nullptr},
};

constinit const return_code_str TM_NE_CLI_return_code_str[] = {
    {0, "exit ok"},          {-1, "exit error"},     {-2, "time out"},     {-3, "not implemented"},
    {-4, "parameter error"}, {-5, "hardware error"}, {-6, "memory error"}, {1, nullptr},
};

namespace {

const char* look_up(const return_code_str* table, short code)
{
    for (; table->text != nullptr; ++table) {
        if (static_cast<short>(table->code) == code) return table->text;
    }
    return "Error code was not found!!!";
}

} // namespace

const char* error_string_lookup(short code)
{
    return look_up(CLI_return_code_str, code);
}

const char* ctc_stack_error_string_lookup(short code)
{
    return look_up(CTC_STACK_CLI_return_code_str, code);
}

const char* internal_dba_error_string_lookup(short code)
{
    return look_up(INTERNAL_DBA_CLI_return_code_str, code);
}

const char* open_encryption_error_string_lookup(short code)
{
    return look_up(OPEN_ENCRYPTION_CLI_return_code_str, code);
}

const char* vireo4_error_string_lookup(short code)
{
    return look_up(VIREO4_CLI_return_code_str, code);
}

const char* vireo4_dba_error_string_lookup(short code)
{
    return look_up(VIREO4_CLI_dba_return_code_str, code);
}

const char* remote_management_error_string_lookup(short code)
{
    return look_up(REMOTE_MANAGEMENT_CLI_return_code_str, code);
}

const char* tm_ne_error_string_lookup(short code)
{
    return look_up(TM_NE_CLI_return_code_str, code);
}
