#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""What an operator sees while editing a line."""

import random
import sys

from screen import Screen

import client_tests

PROMPT = "VNS# "


def test_typing_in_the_middle(host, _):
    screen = Screen(host)
    screen.type("shw who<home><right><right>o")
    screen.expect("VNS# sho|w who")
    screen.type("<end><left><left><left><backspace><backspace>")
    screen.expect("VNS# sho|who")
    screen.type("<delete><^D>w <^E>")
    screen.expect("VNS# show o|")
    screen.type("<^A><^K>")
    screen.expect("VNS# |")
    screen.close()


def test_word_keys(host, _):
    screen = Screen(host)
    screen.type("show olt parameters 0<word-left><word-left>")
    screen.expect("VNS# show olt |parameters 0")
    screen.type("<esc>b")
    screen.expect("VNS# show |olt parameters 0")
    screen.type("<esc>f<word-right><^W>")
    screen.expect("VNS# show olt | 0")
    screen.type("<^U>")
    screen.expect("VNS# | 0")
    screen.close()


def test_erased_words_come_back(host, _):
    screen = Screen(host)
    screen.type("show olt parameters<^W><^W><^Y>")
    screen.expect("VNS# show olt |")
    screen.type("<^A><esc>d<end><^Y>")
    screen.expect("VNS#  olt show|")
    screen.close()


def test_characters_of_two_columns(host, _):
    """The cursor steps over whole characters, also over rows."""
    screen = Screen(host, columns=20)
    screen.type("日本語 xx<home>a<right><right>")
    screen.expect("VNS# a日本|語 xx")
    screen.type("<backspace>")
    screen.expect("VNS# a日|語 xx")
    screen.type("<^K>ab本本本本本本")
    screen.expect("VNS# a日ab本本本本本", "本|")
    screen.type("<left><left><left>本")
    screen.expect("VNS# a日ab本本本本|本", "本本")
    screen.type("<up><^U>")
    screen.expect("VNS# |")
    screen.type("e\u0301x<left>y")
    screen.expect("VNS# \u00e9y|x")
    screen.close()


def test_a_line_over_three_rows(host, _):
    """Every key of an edited line that wraps at 40 columns leaves exactly the line on the screen."""
    screen = Screen(host, columns=40)
    line = "simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1,severity=2,text=abcdef"
    screen.type(line)
    screen.expect_line(PROMPT, line, len(line))
    screen.type("<home>")
    screen.expect_line(PROMPT, line, 0)
    screen.type("do <delete>")
    line = "do " + line[1:]
    screen.expect_line(PROMPT, line, 3)
    screen.type("<end><backspace><backspace>")
    screen.expect_line(PROMPT, line[:-2], len(line) - 2)
    screen.type("<^A><^K>")
    screen.expect_line(PROMPT, "", 0)
    screen.close()


def test_a_row_that_is_just_full(host, _):
    screen = Screen(host, columns=40)
    for length in (34, 35, 36, 74, 75, 76):
        line = "x" * length
        screen.type(line)
        screen.expect_line(PROMPT, line, length)
        screen.type("<left>")
        screen.expect_line(PROMPT, line, length - 1)
        screen.type("<right><backspace>")
        screen.expect_line(PROMPT, line[1:], length - 1)
        screen.type("<^U>")
        screen.expect_line(PROMPT, "", 0)
    screen.close()


def test_history(host, _):
    screen = Screen(host, columns=40)
    long = "simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1"
    for line in ("who", long, "show history"):
        screen.type(line + "<enter>")
    screen.type("half<up>")
    screen.expect_line(PROMPT, "show history", 12)
    screen.type("<up>")
    screen.expect_line(PROMPT, long, len(long))
    screen.type("<^P>")
    screen.expect_line(PROMPT, "who", 3)
    screen.type("<down><down><^N>")
    screen.expect_line(PROMPT, "half", 4)
    screen.close()


def test_search_in_the_history(host, _):
    """Each key narrows it down; an older line comes with Ctrl-R again; Ctrl-G goes back to what was being typed."""
    screen = Screen(host)
    for line in ("show terminal", "who", "show history"):
        screen.type(line + "<enter>")
    screen.type("half<^R>sh")
    screen.expect("(search)`sh': |show history")
    screen.type("<^R>")
    screen.expect("(search)`sh': |show terminal")
    screen.type("x")
    screen.expect("(no line with `shx') |show terminal")
    screen.type("<backspace><left>")
    screen.expect("VNS# |show history")
    screen.type("<^U><^K>half<^R>who<^G>")
    screen.expect_line(PROMPT, "half", 4)
    screen.type("<^U><^R>who<enter>")
    assert " From " in screen.shown(), screen.shown()
    screen.expect("VNS# |")
    screen.close()


def test_search_over_rows(host, _):
    screen = Screen(host, columns=40)
    long = "simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1"
    screen.type(long + "<enter>who<enter><^R>alarm=4")
    shown = "(search)`alarm=4': " + long
    screen.expect_line("(search)`alarm=4': ", long, long.index("alarm=4"))
    screen.type("<^E>")
    screen.expect_line(PROMPT, long, len(long))
    assert shown[:40] not in screen.shown(), screen.shown()
    screen.close()


def test_interrupt_and_redraw(host, _):
    screen = Screen(host)
    screen.type("show ol<left><^C>")
    screen.expect("VNS# show ol^C", "VNS# |")
    screen.type("x" * 100 + "<home><^C>")
    screen.expect("VNS# " + "x" * 75, "x" * 25 + "^C", "VNS# |")
    screen.type("show olt<left><left>")
    screen.emulator.erase_in_display(2)  # a line of noise
    screen.type("<^L>")
    screen.expect("VNS# show o|lt")
    screen.close()


def test_completion(host, _):
    screen = Screen(host)
    screen.type("conf<tab>")
    screen.expect("VNS# configure |")
    screen.type("<^U>sh<tab>")
    screen.expect("VNS# show |")
    screen.type("simulate <tab>")
    rows = screen.rows()
    assert rows[-1] == "VNS# show simulate" and "operations" in rows[-2] and "faults" in rows[-2], rows
    screen.expect("VNS# show simulate |")
    screen.close()


def test_what_is_there_is_offered(host, _):
    """OLTs and links of the network, where a number of one is to be typed."""
    screen = Screen(host)
    screen.type("configure terminal<enter>olt <tab>")
    rows = screen.rows()
    assert rows[-2].split() == ["0", "1", "3"], rows
    screen.expect("VNS(config)# olt |")
    screen.type("0<enter>llid 25<tab>")
    screen.expect("VNS(OLT0)# llid 254 |")
    screen.close()


def test_help_in_the_middle(host, _):
    """The help is for what stands before the cursor; the line comes back with its cursor."""
    screen = Screen(host)
    screen.type("show simulate links<left><left><left><left><left>?")
    rows = screen.rows()
    assert any(row.lstrip().startswith("operations") for row in rows), rows
    screen.expect("VNS# show simulate |links")
    screen.type("<end>?")
    assert any(row.lstrip().startswith("olt") for row in screen.rows()) or "links" in screen.shown(), screen.rows()
    screen.expect("VNS# show simulate links|")
    screen.close()


def test_wrapped_help(host, _):
    """No row of the help is broken by the terminal."""
    for columns in (40, 60, 132):
        screen = Screen(host, columns=columns, rows=60)
        screen.type("terminal length 0<enter>simulate ?")
        rows = screen.rows()
        help_rows = rows[rows.index("VNS# simulate") + 1:-1]
        assert len(help_rows) >= 3 and all(len(row) < columns for row in help_rows), help_rows
        screen.expect("VNS# simulate |")
        screen.close()


def test_events_while_typing(host, _):
    """An event stands above the line, which is as it was; also on a line over three rows."""
    for line, back in (("show ol", 0), ("show olt parameters", 9), ("x" * 100, 0), ("x" * 100, 70), ("x" * 75, 0)):
        screen = Screen(host, columns=40)
        screen.type("event-notify<enter>" + line + "<left>" * back)
        raiser = Screen(host)
        raiser.type("simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1<enter>")
        screen.until(lambda: "alarm: olt 0" in screen.shown())
        screen.settle()
        screen.expect_line(PROMPT, line, len(line) - back)
        assert screen.shown().count("VNS# ") == 2, screen.shown()  # "event-notify" and the line itself
        assert screen.shown().count("x") <= 100, screen.shown()
        raiser.close()
        screen.close()


def test_resize_while_typing(host, _):
    """After the window has changed, every key works on the line as it is now wrapped."""
    for columns, later in ((40, 80), (80, 40), (80, 33), (40, 41)):
        screen = Screen(host, columns=columns)
        line = "simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1"
        screen.type(line)
        screen.resize(later, 24)
        screen.expect_line(PROMPT, line, len(line))
        screen.type("<home>x<end>y")
        screen.expect_line(PROMPT, "x" + line + "y", len(line) + 2)
        screen.close()


class Model:
    """What a line should be after each key."""

    def __init__(self):
        self.text, self.at = "", 0

    def insert(self, letters):
        self.text = self.text[:self.at] + letters + self.text[self.at:]
        self.at += len(letters)

    def remove(self, start, end):
        self.text = self.text[:start] + self.text[end:]
        self.at = start

    def word_start(self):
        before = self.text[:self.at].rstrip(" ")
        return before.rfind(" ") + 1

    def word_end(self):
        behind = self.text[self.at:]
        blanks = len(behind) - len(behind.lstrip(" "))
        end = behind.find(" ", blanks)
        return len(self.text) if end < 0 else self.at + end

    def press(self, key):
        if key == "<left>":
            self.at = max(0, self.at - 1)
        elif key == "<right>":
            self.at = min(len(self.text), self.at + 1)
        elif key in ("<home>", "<^A>"):
            self.at = 0
        elif key in ("<end>", "<^E>"):
            self.at = len(self.text)
        elif key == "<backspace>" and self.at:
            self.remove(self.at - 1, self.at)
        elif key == "<delete>" and self.at < len(self.text):
            self.remove(self.at, self.at + 1)
        elif key == "<^K>":
            self.text = self.text[:self.at]
        elif key == "<^U>":
            self.remove(0, self.at)
        elif key == "<^W>":
            self.remove(self.word_start(), self.at)
        elif key == "<esc>b":
            self.at = self.word_start()
        elif key == "<esc>f":
            self.at = self.word_end()
        elif key == "<esc>d":
            self.remove(self.at, self.word_end())
        elif key[0] != "<":
            self.insert(key)


PRESSED = ["<left>", "<right>", "<home>", "<end>", "<^A>", "<^E>", "<backspace>", "<delete>", "<^W>", "<^L>", "<esc>b", "<esc>f", "<esc>d", "a", "b ",
           "lmnop", "olt 0 values ", "x" * 17, "<left>", "<backspace>"]


def test_any_keys_in_any_order(host, _):
    """The screen is what the line is, after every one of many keys, on narrow and wide screens."""
    chance = random.Random(11)
    for columns in (21, 40, 80):
        screen = Screen(host, columns=columns)
        model = Model()
        for number in range(250):
            key = chance.choice(PRESSED if len(model.text) < 200 else ["<^U>", "<^K>"])
            model.press(key)
            screen.type(key)
            try:
                screen.expect_line(PROMPT, model.text, model.at)
            except AssertionError as fault:
                raise AssertionError(f"key {number}, {key}, {columns} columns: {fault}") from None
        screen.close()


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")]))
