"""page_tests.py CORVANE_SAMPLE CORVANE_TOOL FOLDER: tries the page in a real browser. Pictures stay
in FOLDER, which must be new."""

import itertools
import os
import subprocess
import sys
import time
import traceback

from webdriver import Browser

sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "..", "tool"))
from games import draw_pages  # noqa: E402

ENTER, ESCAPE, TAB = "\ue007", "\ue00c", "\ue004"

VIEW = "return document.querySelector('svg.layer').getAttribute('viewBox')"
SHOWN = "return document.querySelector('article.shown')?.dataset.map ?? ''"
WATCHED = None  # a game to change
PINNED = "return document.querySelector('#maps [aria-pressed=true]')?.dataset.map ?? ''"


def equal(is_now, wanted):
    assert is_now == wanted, "%r, not %r" % (is_now, wanted)


def lit_roads(browser):
    return set(browser.run("""return [...document.querySelectorAll('path.lit')].map(
        (road) => road.dataset.from + '-' + road.dataset.to)"""))


def roads_of(browser, number):
    return set(browser.run("""return [...document.querySelectorAll('path[data-from]')].filter(
        (road) => road.dataset.from === arguments[0] || road.dataset.to === arguments[0]).map(
        (road) => road.dataset.from + '-' + road.dataset.to)""", number))


def pointing_at_a_map_lights_up_its_roads_and_lists_its_data(browser):
    browser.open("sample.html")
    equal(browser.run(SHOWN), "")
    browser.point("#map-3 rect")
    browser.wait(SHOWN + " === '3'")
    wanted = roads_of(browser, "3")
    assert wanted, "map 3 has roads"
    equal(lit_roads(browser), wanted)
    data = browser.run("return document.querySelector('article.shown').innerText")
    for part in ("Havrune", "Center X", "Connections", "exit", "objective"):
        assert part in data, part + " is missing in " + data
    browser.point("#filter")
    browser.wait(SHOWN + " === ''")
    equal(lit_roads(browser), set())


def the_keyboard_does_what_the_mouse_does(browser):
    browser.open("sample.html")
    browser.run("document.getElementById('map-4').focus()")
    browser.wait(SHOWN + " === '4'")
    equal(lit_roads(browser), roads_of(browser, "4"))
    browser.press(ENTER)
    browser.wait(PINNED + " === '4'")
    browser.press(TAB)
    browser.wait(SHOWN + " === '5'")
    equal(browser.run(PINNED), "4")
    browser.press(ESCAPE)
    browser.wait(PINNED + " === ''")
    before = browser.run(VIEW)
    browser.press("+")
    browser.wait(VIEW + " !== arguments[0]", before)
    browser.press("0")
    browser.wait(VIEW + " === arguments[0]", before)


def a_click_pins_a_map(browser):
    browser.open("sample.html")
    browser.click("#map-3 rect")
    browser.wait(PINNED + " === '3'")
    browser.point("#map-6 rect")
    browser.wait(SHOWN + " === '6'")
    browser.point("#filter")
    browser.wait(SHOWN + " === '3'")
    browser.click("#map-3 rect")
    browser.wait(PINNED + " === ''")
    browser.click("#button-7")
    browser.wait(PINNED + " === '7'")
    browser.click("rect.screen")
    browser.wait(PINNED + " === ''")


def the_filter_hides_other_maps(browser):
    browser.open("sample.html")
    browser.click("#filter")
    browser.press(*"HAVR")
    left = """return [...document.querySelectorAll('#maps li:not([hidden])')].map(
        (item) => item.textContent.trim()).join()"""
    browser.wait(left + " === '3 Havrune'")
    equal(browser.run("return document.querySelectorAll('.tile.filtered-out').length"), 42)
    equal(browser.run("return document.querySelector('#map-3').matches('.filtered-out')"), False)


def labels_do_not_overlap(browser):
    browser.open("crowded.html")
    boxes = browser.run("""return [...document.querySelectorAll('text.name')].map((label) => {
        const box = label.getBoundingClientRect();
        return [box.left + 1, box.top + 1, box.right - 1, box.bottom - 1]; })""")
    assert 6 <= len(boxes) < 43, len(boxes)
    for one, other in itertools.combinations(boxes, 2):
        assert (one[0] >= other[2] or other[0] >= one[2] or one[1] >= other[3]
                or other[1] >= one[3]), (one, other)
    for number in range(43):
        title = browser.run("return document.querySelector('#map-' + arguments[0] + ' > title')"
                            ".textContent", number)
        assert title.startswith("%03d " % number), title


def a_finding_leads_to_its_place(browser):
    browser.open("faulty.html")
    for number in browser.run("""return [...document.querySelectorAll('#found a')].filter(
            (link) => link.dataset.map !== '-1' || link.dataset.arrow !== '-1').map(
            (link) => link.dataset.mark)"""):
        browser.run("document.querySelector(`#found a[data-mark='${arguments[0]}']`).click()",
                    number)
        place = browser.run("""
            const flash = document.querySelector('.layer .flash').getBoundingClientRect();
            const view = document.querySelector('main').getBoundingClientRect();
            return [flash.x + flash.width / 2 - view.x - view.width / 2,
                    flash.y + flash.height / 2 - view.y - view.height / 2]""")
        assert max(map(abs, place)) < 3, "finding %s is shown %s off centre" % (number, place)


def a_badge_leads_to_its_line(browser):
    browser.open("faulty.html")
    browser.click("#at-3")
    browser.wait("return document.querySelector('#found-3').matches('.flash')")
    equal(browser.run("""const line = document.querySelector('#found-3').getBoundingClientRect();
        return line.top >= 0 && line.bottom <= innerHeight"""), True)


def the_wheel_zooms_where_it_points(browser):
    browser.open("sample.html")
    where = """const box = document.querySelector('#map-3 rect').getBoundingClientRect();
        return [box.x + box.width / 2, box.y + box.height / 2, box.width]"""
    x, y, width = browser.run(where)
    browser.wheel("#map-3 rect", -100)
    browser.wait("%s[2] > arguments[0] * 1.1" % where, width)
    nearer = browser.run(where)
    assert abs(nearer[0] - x) < 2, nearer
    assert abs(nearer[1] - y) < 2, nearer


def dragging_pans_and_pins_nothing(browser):
    browser.open("sample.html")
    where = "return document.querySelector('#map-3').getBoundingClientRect().x"
    before = browser.run(where)
    browser.drag("#map-3 rect", 80, 0)
    browser.wait("return Math.abs(document.querySelector('#map-3').getBoundingClientRect().x - "
                 "arguments[0] - 80) < 2", before)
    equal(browser.run(PINNED), "")
    browser.click("#map-3 rect")
    browser.wait(PINNED + " === '3'")


def a_reload_keeps_zoom_pin_and_filter(browser):
    browser.open("sample.html")
    browser.click("#map-3 rect")
    browser.click("#nearer")
    browser.click("#filter")
    browser.press("a")
    view = browser.run(VIEW)
    browser.wait("return history.state?.filter === 'a' && history.state.pinned === 3")
    browser.reload()
    equal(browser.run(VIEW), view)
    equal(browser.run(PINNED), "3")
    equal(browser.run("return document.getElementById('filter').value"), "a")


def a_watched_page_shows_what_was_redrawn(browser):
    watch = subprocess.Popen([WATCHED.tool, "draw", "--watch", WATCHED.exe, "watched.html"],
                             stdout=subprocess.DEVNULL)
    try:
        while not os.path.exists("watched.html"):
            assert watch.poll() is None, "the program has ended"
            time.sleep(0.01)
        browser.open("watched.html")
        browser.click("#map-3 rect")
        browser.click("#nearer")
        view = browser.run(VIEW)
        WATCHED.rename(3, "Renamed")
        browser.wait("return document.getElementById('button-3')?.textContent === '3 Renamed'")
        equal(browser.run(VIEW), view)
        equal(browser.run(PINNED), "3")
    finally:
        watch.terminate()
        watch.wait()


def hostile_names_do_nothing(browser):
    browser.open("faulty.html")
    for number in range(9):
        browser.run("document.getElementById('map-' + arguments[0]).focus()", str(number))
    browser.point("#map-1 rect")
    browser.wait(SHOWN + " === '1'")
    assert "<i>harm" in browser.run("return document.title")
    equal(browser.run("return document.querySelectorAll('script').length"), 1)
    equal(browser.run("return document.querySelectorAll('img, i, b, [onmouseover]').length"), 0)
    text = browser.run("return document.body.textContent")
    for hidden in "\u202e\u202c\x1b\x02":
        assert hidden not in text, "%r is on the page" % hidden
    assert "\\u202Edtb" in text


def foreign_scripts_do_not_run(browser):
    browser.open("sample.html")
    browser.run("""const script = document.createElement('script');
        script.textContent = 'document.title = "harm"'; document.body.append(script);
        const picture = document.createElement('img'); picture.src = 'sample.svg';
        picture.onerror = () => { window.refused = true; }; document.body.append(picture);""")
    browser.wait("return window.refused")
    assert browser.run("return document.title") != "harm"
    messages = browser.console()
    assert sum("Content Security Policy" in line for line in messages) == 2, messages


TESTS = [
    pointing_at_a_map_lights_up_its_roads_and_lists_its_data,
    the_keyboard_does_what_the_mouse_does, a_click_pins_a_map, the_filter_hides_other_maps,
    labels_do_not_overlap, a_finding_leads_to_its_place, a_badge_leads_to_its_line,
    the_wheel_zooms_where_it_points,
    dragging_pans_and_pins_nothing, a_reload_keeps_zoom_pin_and_filter,
    a_watched_page_shows_what_was_redrawn, hostile_names_do_nothing,
    foreign_scripts_do_not_run,
]


def try_all():
    failed = 0
    with Browser() as browser:
        for test in TESTS:
            start = time.monotonic()
            try:
                test(browser)
                messages = browser.console()
                assert not messages, "the console says: %s" % messages
                result = "passed"
            except Exception:
                failed += 1
                result = "FAILED\n" + traceback.format_exc()
                browser.console()
            print("%-62s %5.1f s %s" % (test.__name__.replace("_", " "),
                                        time.monotonic() - start, result), flush=True)
    return failed


def keep_pictures():
    for dark in (False, True):
        for scale in (1, 2):
            with Browser(scale, dark) as browser:
                for page in ("sample.html", "faulty.html", "moved.html", "faulty.svg"):
                    browser.open(page)
                    if page == "sample.html":
                        browser.click("#map-25 rect")
                        browser.wait(PINNED + " === '25'")
                    name = "%s-%s-%d.png" % (page.replace(".", "-"), "dark" if dark else "light",
                                             scale)
                    browser.picture(name)


def main():
    global WATCHED
    sample, tool = map(os.path.abspath, sys.argv[1:3])
    os.makedirs(sys.argv[3])
    os.chdir(sys.argv[3])
    WATCHED = draw_pages(sample, tool)
    failed = try_all()
    keep_pictures()
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
