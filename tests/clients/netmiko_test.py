#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""netmiko, as automation uses the console."""

import sys

import client_tests
from netmiko.ssh_exception import NetMikoAuthenticationException
from netmiko_console import CommandRefused, EponConsole


def connect(host, password=client_tests.PASSWORD, **options):
    return EponConsole(host="127.0.0.1", port=host.port, device_type="epon_telnet", username=client_tests.USER,
                       password=password, **options)


def refusal(action, *arguments):
    try:
        action(*arguments)
    except CommandRefused as refused:
        return str(refused)
    raise AssertionError(f"{arguments} was not refused")


def test_automation(host, _):
    watch = client_tests.Stopwatch("netmiko")
    with connect(host) as console:
        watch.step("login", 3)
        console.enable()
        console.config_mode()
        watch.step("configuration mode")
        answer = console.send_config_set(["olt 0", "set max-rtt 12345", "show olt parameters"])
        watch.step("three commands in it")
        assert "Max rtt: 12345" in answer, answer
        assert console.find_prompt() == "BIG#"


def test_many_rows(host, _):
    with connect(host, fast_cli=True) as console:
        console.enable()
        watch = client_tests.Stopwatch("netmiko")
        rows = console.send_command("show simulate links").splitlines()[1:]
        watch.step(f"{client_tests.LINKS} rows", 1)  # most of it is netmiko's own
        assert len(rows) == client_tests.LINKS
        assert [row.split()[:2] for row in rows] == [[str(olt), str(link)] for olt in range(8) for link in range(250)]


def test_refusals_stop_a_playbook(host, _):
    with connect(host, fast_cli=True) as console:
        console.enable()
        assert "% Unknown command." in refusal(console.send_command, "bla")
        assert "olt 9: OLT id (9) doesn't exist." in refusal(console.send_config_set, ["olt 9", "set max-rtt 1"])
        assert "not in the range" in refusal(console.send_config_set, ["olt 0", "set max-rtt 99999"])
        assert not any("NEP_update_olt_parameters" in call for call in client_tests.journal(host))


def test_wrong_password(host, _):
    try:
        connect(host, "wrong")
    except NetMikoAuthenticationException as refused:
        assert "% Bad name or password." in str(refused), refused
    else:
        raise AssertionError("a wrong password was good enough")


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")],
                              client_tests.big_guarded_network))
