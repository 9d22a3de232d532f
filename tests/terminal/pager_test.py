#!/usr/bin/python3 -B
# SPDX-License-Identifier: Apache-2.0
"""Long answers, a page at a time, as an operator sees them."""

import sys

from screen import Screen

import client_tests

MORE = "--More-- (space: page, enter: line, /: search, q: quit)"
ROWS = 12
ALL = "show simulate operations"


def whole_answer(host, command=ALL):
    """The lines of the answer, as a screen that is long enough shows them."""
    screen = Screen(host, rows=600)
    screen.type(f"terminal length 0<enter>{command}<enter>")
    rows = screen.rows()
    start = rows.index("VNS# " + command) + 1
    screen.close()
    return rows[start:-1]


def at_first_page(host, columns=80, command=ALL):
    screen = Screen(host, rows=ROWS, columns=columns)
    screen.type(command + "<enter>")
    return screen


def test_pages(host, _):
    """Each page fills the screen, nothing is shown twice and nothing is left out."""
    lines = whole_answer(host)
    assert len(lines) > 2 * ROWS, "not enough to show"
    screen = at_first_page(host)
    seen = []
    while screen.rows()[-1] == MORE:
        page = screen.rows()[:-1]
        assert len(page) == ROWS - 1 or not seen, page
        seen += [row for row in page if row in lines]
        assert seen == lines[:len(seen)], (seen, page)
        screen.type(" ")
    rows = screen.rows()
    assert rows[-1] == "VNS#" and MORE not in rows, rows
    assert rows[-2] == lines[-1], rows
    screen.close()


def test_the_first_page(host, _):
    lines = whole_answer(host)
    screen = at_first_page(host)
    rows = screen.rows()
    assert rows == lines[:ROWS - 1] + [MORE], rows
    screen.close()


def test_one_line_more(host, _):
    lines = whole_answer(host)
    screen = at_first_page(host)
    for number in range(1, 4):
        screen.type("<enter>")
        screen.expect(lines[ROWS - 2 + number], MORE)
    screen.close()


def test_quit(host, _):
    for key in ("q", "Q", "<^C>"):
        screen = at_first_page(host)
        screen.type(key)
        screen.expect("VNS# |")
        assert MORE not in screen.shown(), screen.shown()
        screen.type("who<left>x")
        screen.expect("VNS# whx|o")
        screen.close()


def test_search(host, _):
    lines = whole_answer(host)
    wanted = lines[-5]
    screen = at_first_page(host)
    screen.type("/" + wanted)
    screen.expect("/" + wanted + "|")
    screen.type("<enter>")
    rows = screen.rows()
    assert rows[-6:] == lines[-5:] + ["VNS#"] and rows[-7] == "...", rows
    screen.close()


def test_a_search_without_success_and_a_wrong_one(host, _):
    screen = at_first_page(host)
    screen.type("/nowhere to be found<enter>")
    screen.expect("% Not found in what is left.", MORE)
    screen.type("/(<enter>")
    rows = screen.rows()
    assert rows[-2].startswith("% Wrong regular expression: ") and rows[-1] == MORE, rows
    screen.type("/abc<backspace><backspace><backspace>")
    screen.expect("/|")
    screen.type("<backspace>")
    screen.expect(MORE)
    screen.close()


def test_other_keys_do_nothing(host, _):
    screen = at_first_page(host)
    before = screen.rows()
    screen.type("x?<up><tab><delete>7")
    assert screen.rows() == before, screen.rows()
    screen.close()


def test_events_wait_for_the_end(host, _):
    screen = Screen(host, rows=ROWS)
    screen.type("event-notify<enter>" + ALL + "<enter>")
    assert screen.rows()[-1] == MORE, "what was typed ahead must not be taken for keys"
    before = screen.rows()
    other = Screen(host)
    other.type("simulate event alarm olt 0 values onu_id=5,alarm=4,raised=1<enter>")
    screen.settle()
    assert screen.rows() == before, screen.rows()
    screen.type("q")
    screen.until(lambda: "alarm: olt 0, onu 5" in screen.shown())
    screen.settle()
    screen.expect("VNS# |")
    other.close()
    screen.close()


def test_a_window_that_changes(host, _):
    """The next page is as long as the window has become."""
    lines = whole_answer(host)
    screen = at_first_page(host)
    screen.resize(80, 20)
    screen.type(" ")
    rows = screen.rows()
    assert len(rows) == 20 and rows[-1] == MORE, rows
    assert rows[:-1] == lines[ROWS - 1:ROWS - 1 + 19], rows
    screen.close()


def test_narrow_windows(host, _):
    """Lines that wrap count as the rows that they take."""
    screen = at_first_page(host, columns=30, command="show simulate links")
    rows = screen.rows()
    assert len(rows) == ROWS and rows[-1] == "--More--" and rows[0] == "VNS# show simulate links", rows
    screen.close()


def test_help_is_paged(host, _):
    screen = Screen(host, rows=ROWS)
    screen.type("who<home>?")
    assert screen.rows()[-1] == MORE, screen.rows()
    screen.type("q")
    screen.expect("VNS# |who")
    screen.close()


def test_no_pages(host, _):
    lines = whole_answer(host)
    for wish in ("terminal length 0<enter>" + ALL + "<enter>", ALL + " | no-more<enter>"):
        screen = Screen(host, rows=ROWS)
        screen.type(wish)
        screen.expect(lines[-1], "VNS# |")
        screen.close()


if __name__ == "__main__":
    sys.exit(client_tests.run([test for name, test in list(globals().items()) if name.startswith("test_")]))
