# SPDX-License-Identifier: Apache-2.0
"""The console as a netmiko device: copy this file into your automation.

    with EponConsole(host="10.0.0.5", port=2600, device_type="epon_telnet", username="anna", password="...") as console:
        console.enable()
        console.send_config_set(["olt 0", "set max-rtt 12000"])
        print(console.send_command("show olt parameters"))

A command that the console refused raises CommandRefused, so that a playbook stops where it failed.
"""

import re

from netmiko.base_connection import BaseConnection
from netmiko.ssh_exception import NetMikoAuthenticationException

PROMPT = r"(?:^|[\r\n])[^\r\n]+[>#] $"  # the console's prompt is the last thing that it sends
ASKS = r"([Uu]ser ?name|[Ll]ogin|[Pp]assword): *$"
REFUSED = re.compile(r"^(% .*|Command return error\.|Error.*, aborting!?|.*Can't enter .*|There is no .*)$", re.MULTILINE)


class CommandRefused(Exception):
    """What the console said instead of carrying out a command."""


class EponConsole(BaseConnection):
    def telnet_login(self, *_args, **_kwargs):
        answers = {"password": self.password, "username": self.username, "login": self.username}
        seen = self.read_until_pattern(f"{PROMPT}|{ASKS}")
        while asked := re.search(ASKS, seen):
            self.write_channel(answers[asked[1].replace(" ", "").lower()] + self.TELNET_RETURN)
            seen = self.read_until_pattern(f"{PROMPT}|{ASKS}")
            if "% " in seen:
                raise NetMikoAuthenticationException(seen.strip())
        return seen

    def session_preparation(self):
        self.find_prompt()
        self.send_command("terminal length 0")

    def find_prompt(self, delay_factor=1):
        self.clear_buffer()
        self.write_channel(self.RETURN)
        prompt = self.read_until_pattern(PROMPT).strip()
        self.base_prompt = re.match(r"[^(>#]+", prompt)[0]  # the host's name, the same in every node
        return prompt

    def send_command(self, command_string, expect_string=PROMPT, **options):
        answer = super().send_command(command_string, expect_string=expect_string, **options)
        refused = REFUSED.search(answer)
        if refused:
            raise CommandRefused(f"{command_string}: {refused[0]}")
        return answer

    def check_enable_mode(self, check_string="#"):
        return self.find_prompt().endswith(check_string)

    def enable(self, cmd="enable", pattern=ASKS, **_options):
        if self.check_enable_mode():
            return ""
        self.write_channel(self.normalize_cmd(cmd))
        seen = self.read_until_pattern(f"{PROMPT}|{pattern}")
        if re.search(pattern, seen):
            self.write_channel(self.normalize_cmd(self.secret))
            seen = self.read_until_pattern(f"{PROMPT}|{pattern}")
        if not self.check_enable_mode():
            raise CommandRefused(f"enable: {seen.strip()}")
        return seen

    def check_config_mode(self, check_string="(", pattern=""):
        return check_string in self.find_prompt()

    def config_mode(self, config_command="configure terminal", pattern=""):
        """Always the configuration node itself, wherever the session was."""
        if self.check_config_mode():
            self.exit_config_mode()
        return self.send_command(config_command)

    def exit_config_mode(self, exit_config="end", pattern=""):
        """Out of an OLT's context it takes one step more than out of the configuration node."""
        output = ""
        while self.check_config_mode():
            output += self.send_command(exit_config)
        return output

    def send_config_set(self, config_commands=None, exit_config_mode=True, **_options):
        """Each command on its own, so that the first one that is refused ends it."""
        output = self.config_mode()
        for command in config_commands or []:
            output += self.send_command(command)
        return output + (self.exit_config_mode() if exit_config_mode else "")

    def cleanup(self):
        self._session_log_fin = True
        self.write_channel(self.normalize_cmd("quit"))
