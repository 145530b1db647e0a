#!/usr/bin/env python3
"""Opens the page that `liveview preview` writes for every example live view in headless Chromium
and checks it as a person would see it: no console error; every part of the live view's kinds
present, visible and holding the text of the example; the colours as computed styles; timers that
move once a second unless paused. Saves a screenshot of each example. Also checks that hostile
text (tests/browser/hostile-text.json) is shown as text and runs nothing, and that a refused live
view (tests/browser/refused.json) gives a page with its code and message.

Usage: preview_test.py --liveview PATH --examples DIR --screenshots DIR
Prints one line per test and a closing "N passed, N failed"; exits 1 on any failure.
"""
import argparse
import json
import os
import re
import shutil
import subprocess
import sys
import tempfile
import time

from selenium import webdriver
from selenium.common.exceptions import WebDriverException
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By

CHROMIUM = "/usr/bin/chromium"
CHROMEDRIVER = "/usr/bin/chromedriver"
WINDOW = (1180, 800)
HERE = os.path.dirname(os.path.abspath(__file__))

CAPSULE_KINDS = {1: "text", 2: "timer", 3: "progress"}
LAYOUT_KINDS = {3: "progress", 4: "pickup", 5: "flight", 7: "score", 8: "navigation"}


class Check:
    """Collects the failures of one test."""

    def __init__(self, name):
        self.name = name
        self.failures = []

    def fail(self, text):
        self.failures.append(text)

    def equal(self, what, actual, expected):
        if actual != expected:
            self.fail(f"{what}: got {actual!r}, expected {expected!r}")


def start_browser(profile):
    options = Options()
    options.binary_location = CHROMIUM
    for flag in ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                 "--disable-background-networking", "--disable-component-update", "--disable-sync",
                 "--hide-scrollbars", "--force-device-scale-factor=1",
                 f"--window-size={WINDOW[0]},{WINDOW[1]}", f"--user-data-dir={profile}"):
        options.add_argument(flag)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    return webdriver.Chrome(service=Service(executable_path=CHROMEDRIVER), options=options)


def css_color(text):
    """The channels of "#AARRGGBB" or "#RRGGBB" as (r, g, b, alpha 0..1)."""
    digits = text[1:]
    if len(digits) == 8:
        alpha, digits = int(digits[:2], 16) / 255, digits[2:]
    else:
        alpha = 1.0
    return (int(digits[0:2], 16), int(digits[2:4], 16), int(digits[4:6], 16), alpha)


def parse_computed(text):
    numbers = [float(n) for n in re.findall(r"[\d.]+", text)]
    if len(numbers) == 3:
        numbers.append(1.0)
    return tuple(numbers) if len(numbers) == 4 else None


def same_color(computed, expected):
    actual = parse_computed(computed)
    return actual is not None and all(abs(a - e) <= 0.01 for a, e in zip(actual[:3], expected[:3])) \
        and abs(actual[3] - expected[3]) <= 0.01


def runs_text(runs):
    return "".join(run.get("text", "") for run in runs)


def normal(text):
    return " ".join(text.split())


class Page:
    """The elements of one opened page, looked up by data-part under a container."""

    def __init__(self, driver, check):
        self.driver = driver
        self.check = check

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector, visible=True):
        found = self.all(selector)
        if not found:
            self.check.fail(f"missing {selector}")
            return None
        if visible and not found[0].is_displayed():
            self.check.fail(f"not visible: {selector}")
        return found[0]

    def text(self, selector, expected):
        element = self.one(selector)
        if element is not None:
            self.check.equal(f"text of {selector}", normal(element.text), normal(expected))

    def color(self, selector, prop, expected_hex, visible=True):
        element = self.one(selector, visible)
        if element is None:
            return
        computed = element.value_of_css_property(prop)
        if not same_color(computed, css_color(expected_hex)):
            self.check.fail(f"{prop} of {selector}: got {computed}, expected {expected_hex}")

    def count(self, selector, expected):
        self.check.equal(f"count of {selector}", len(self.all(selector)), expected)


def part(*names):
    return " ".join(f'[data-part="{name}"]' for name in names)


def check_runs(page, container, runs):
    elements = page.all(f"{container} {part('run')}")
    page.check.equal(f"runs in {container}", len(elements), len([r for r in runs if "text" in r]))
    for element, run in zip(elements, [r for r in runs if "text" in r]):
        if "textColor" in run:
            computed = element.value_of_css_property("color")
            if not same_color(computed, css_color(run["textColor"])):
                page.check.fail(f"colour of run {run['text']!r}: got {computed}, "
                                f"expected {run['textColor']}")


def check_capsule(page, capsule):
    kind = CAPSULE_KINDS[capsule["type"]]
    root = f'{part("capsule")}[data-kind="{kind}"]'
    page.one(root)
    page.color(root, "background-color", capsule["backgroundColor"])
    page.one(f"{root} {part('icon')}")
    if kind == "text":
        page.text(f"{root} {part('title')}", capsule.get("title", ""))
        if "content" in capsule:
            page.text(f"{root} {part('content')}", capsule["content"])
    elif kind == "timer":
        if "content" in capsule:
            page.text(f"{root} {part('content')}", capsule["content"])
        page.one(f"{root} {part('timer')}")
    else:
        page.one(f"{root} {part('progress')}")
        if not capsule.get("indeterminate", False):
            percent = capsule["progress"] * 100 // capsule["max"] if capsule["max"] > 0 else 0
            page.text(f"{root} {part('percent')}", f"{min(percent, 100)}%")


def check_layout(page, layout, card, colored_runs):
    kind = LAYOUT_KINDS[layout["layoutType"]]
    root = f'{card} {part("layout")}[data-kind="{kind}"]'
    page.one(root)
    if kind == "progress":
        # An empty bar has a fill of no width, present but not visible.
        filled = layout["progress"] > 0
        fill = page.one(f"{root} {part('progress')}", filled)
        page.color(f"{root} {part('progress')}", "background-color", layout["color"], filled)
        page.color(f"{root} {part('track')}", "background-color", layout["backgroundColor"])
        if fill is not None:
            track = page.one(f"{root} {part('track')}")
            share = fill.size["width"] / track.size["width"] if track and track.size["width"] else 0
            if abs(share - layout["progress"] / 100) > 0.02:
                page.check.fail(f"progress fill is {share:.2f} of the track, "
                                f"expected {layout['progress']}%")
        page.count(f"{root} {part('nodeIcon')}", len(layout.get("nodeIcons", [])))
        page.one(f"{root} {part('indicator')}")
    elif kind == "pickup":
        page.text(f"{root} {part('title')}", layout["title"])
        page.text(f"{root} {part('content')}", layout["content"])
        if "underlineColor" in layout:
            page.color(f"{root} {part('underline')}", "border-bottom-color",
                       layout["underlineColor"])
        if "descPic" in layout:
            page.one(f"{root} {part('descPic')}")
    elif kind == "flight":
        for name in ("firstTitle", "firstContent", "lastTitle", "lastContent", "additionalText"):
            page.text(f"{root} {part(name)}", layout[name])
        page.one(f"{root} {part('spaceIcon')}")
        page.count(f"{root} {part('horizontalLine')}",
                   1 if layout.get("isHorizontalLineDisplayed") else 0)
    elif kind == "score":
        for name in ("hostName", "hostScore", "guestName", "guestScore", "competitionTime"):
            page.text(f"{root} {part(name)}", layout[name])
        page.one(f"{root} {part('hostIcon')}")
        page.one(f"{root} {part('guestIcon')}")
        runs = layout["competitionDescVector"]
        page.text(f"{root} {part('competitionDesc')}", runs_text(runs))
        if colored_runs:
            check_runs(page, f"{root} {part('competitionDesc')}", runs)
    else:
        page.one(f"{root} {part('currentNavigationIcon')}")
        page.count(f"{root} {part('navigationIcon')}", len(layout["navigationIcons"]))


def check_timers(page, liveview):
    """A running clock moves between two reads a second apart; a paused one stands still."""
    clocks = []
    capsule = liveview["liveViewData"].get("capsule", {})
    if capsule.get("type") == 2:
        clocks.append((f"{part('capsule')} {part('timer')}", capsule.get("isPaused", False)))
    if "timer" in liveview:
        clocks.append((f"{part('card')} {part('timerLine')} {part('timer')}",
                       liveview["timer"].get("isPaused", False)))
    if not clocks:
        return
    before = {selector: page.one(selector) for selector, _ in clocks}
    first = {selector: element.text for selector, element in before.items() if element}
    time.sleep(1.3)
    for selector, paused in clocks:
        if selector not in first:
            continue
        second = before[selector].text
        if paused and second != first[selector]:
            page.check.fail(f"paused clock {selector} moved: {first[selector]} -> {second}")
        if not paused and second == first[selector]:
            page.check.fail(f"running clock {selector} stood still at {second}")


def save_whole_page(driver, path):
    """A screenshot of the whole page at the window's width, however tall the page is."""
    height = driver.execute_script("return document.documentElement.scrollHeight")
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                           {"width": WINDOW[0], "height": height, "deviceScaleFactor": 1,
                            "mobile": False})
    driver.save_screenshot(path)
    driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})


def console_errors(driver):
    return [entry["message"] for entry in driver.get_log("browser") if entry["level"] == "SEVERE"]


def preview(liveview_cli, source, out_html):
    began = time.perf_counter()
    run = subprocess.run([liveview_cli, "preview", source, "-o", out_html], capture_output=True,
                         text=True, check=False)
    return run, (time.perf_counter() - began) * 1000


def check_example(driver, liveview_cli, source, workdir, screenshots):
    name = os.path.splitext(os.path.basename(source))[0]
    check = Check(name)
    with open(source, encoding="utf-8") as handle:
        liveview = json.load(handle)
    out_html = os.path.join(workdir, name + ".html")
    run, millis = preview(liveview_cli, source, out_html)
    if run.returncode != 0:
        check.fail(f"liveview preview exited {run.returncode}: {run.stdout}{run.stderr}")
        return check, millis
    driver.get("file://" + out_html)
    page = Page(driver, check)
    data = liveview["liveViewData"]
    primary = data["primary"]

    card = part("card")
    page.text(f"{card} {part('primary')} {part('title')}", primary["title"])
    page.text(f"{card} {part('primary')} {part('content')}", runs_text(primary["content"]))
    check_runs(page, f"{card} {part('primary')} {part('content')}", primary["content"])
    page.text(f"{part('lockscreen')} {part('primary')} {part('title')}", primary["title"])
    if "capsule" in data:
        check_capsule(page, data["capsule"])
    else:
        page.count(part("capsule"), 0)
    if primary.get("layoutData", {}).get("layoutType") in LAYOUT_KINDS:
        check_layout(page, primary["layoutData"], card, True)
        # The dark lock screen draws text runs in its own colour.
        check_layout(page, primary["layoutData"], part("lockscreen"), False)
    extension = primary.get("extensionData")
    if extension and "text" in extension:
        page.text(f"{card} {part('extension')} {part('text')}", extension["text"])
    if extension and "clickAction" in extension:
        button = page.one(f"{card} {part('buttons')} {part('button')}")
        if button is not None:
            check.equal("button action", button.get_attribute("title"),
                        extension["clickAction"]["target"])
    external = data.get("external")
    if external:
        page.text(f"{part('external')} {part('title')}", external["title"])
        page.text(f"{part('external')} {part('content')}", runs_text(external["content"]))
        page.color(part("external"), "background-color", external["backgroundColor"])
    else:
        page.count(part("external"), 0)
    check_timers(page, liveview)
    for message in console_errors(driver):
        check.fail(f"console error: {message}")
    save_whole_page(driver, os.path.join(screenshots, name + ".png"))
    return check, millis


def check_hostile(driver, liveview_cli, workdir):
    """Markup in every text field is shown as text; nothing in it runs or changes the page."""
    check = Check("hostile-text")
    source = os.path.join(HERE, "hostile-text.json")
    with open(source, encoding="utf-8") as handle:
        liveview = json.load(handle)
    out_html = os.path.join(workdir, "hostile-text.html")
    run, millis = preview(liveview_cli, source, out_html)
    if run.returncode != 0:
        check.fail(f"liveview preview exited {run.returncode}: {run.stdout}{run.stderr}")
        return check, millis
    driver.get("file://" + out_html)
    page = Page(driver, check)
    primary = liveview["liveViewData"]["primary"]
    capsule = liveview["liveViewData"]["capsule"]
    external = liveview["liveViewData"]["external"]
    check.equal("document title", driver.title, "hostile-text.json \u00b7 start")
    page.text(f"{part('card')} {part('primary')} {part('title')}", primary["title"])
    page.text(f"{part('card')} {part('primary')} {part('content')}",
              runs_text(primary["content"]))
    page.text(f"{part('card')} {part('event')}", liveview["event"])
    page.text(f"{part('card')} {part('layout')} {part('title')}", primary["layoutData"]["title"])
    page.text(f"{part('card')} {part('layout')} {part('content')}",
              primary["layoutData"]["content"])
    page.text(f"{part('capsule')} {part('title')}", capsule["title"])
    page.text(f"{part('capsule')} {part('content')}", capsule["content"])
    page.text(f"{part('external')} {part('title')}", external["title"])
    page.text(f"{part('external')} {part('content')}", runs_text(external["content"]))
    check.equal("injected elements", len(page.all("#injected, svg[onload], img[onerror]")), 0)
    check.equal("scripts on the page", len(page.all("script")), 1)
    for message in console_errors(driver):
        check.fail(f"console error: {message}")
    return check, millis


def check_refusal(driver, liveview_cli, workdir, screenshots):
    """A live view that the library refuses gives exit status 1 and a page with code and message."""
    check = Check("refused")
    out_html = os.path.join(workdir, "refused.html")
    run, millis = preview(liveview_cli, os.path.join(HERE, "refused.json"), out_html)
    message = ("Parameter error. The type of capsule.backgroundColor mustbe string "
               "[or the parameter length exceeds the limit].")
    check.equal("exit status", run.returncode, 1)
    check.equal("printed answer", run.stdout, f"401 {message}\n")
    if not os.path.exists(out_html):
        check.fail("no page written")
        return check, millis
    driver.get("file://" + out_html)
    page = Page(driver, check)
    page.text(f"{part('refusal')} {part('code')}", "401")
    page.text(f"{part('refusal')} {part('message')}", message)
    page.count(part("hint"), 0)
    page.count(part("card"), 0)
    for entry in console_errors(driver):
        check.fail(f"console error: {entry}")
    save_whole_page(driver, os.path.join(screenshots, "refused.png"))
    return check, millis


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--liveview", required=True)
    parser.add_argument("--examples", required=True)
    parser.add_argument("--screenshots", required=True)
    args = parser.parse_args()

    liveview_cli = os.path.abspath(args.liveview)
    os.makedirs(args.screenshots, exist_ok=True)
    sources = sorted(os.path.join(args.examples, f) for f in os.listdir(args.examples)
                     if f.endswith(".json"))
    workdir = tempfile.mkdtemp(prefix="liveview-preview-")
    profile = os.path.join(workdir, "profile")
    began = time.perf_counter()
    results = []
    driver = None
    try:
        driver = start_browser(profile)
        for source in sources:
            results.append(check_example(driver, liveview_cli, os.path.abspath(source), workdir,
                                         os.path.abspath(args.screenshots)))
        results.append(check_hostile(driver, liveview_cli, workdir))
        results.append(check_refusal(driver, liveview_cli, workdir,
                                     os.path.abspath(args.screenshots)))
    except WebDriverException as error:
        results.append((Check("browser"), 0.0))
        results[-1][0].fail(f"the browser failed: {error.msg}")
    finally:
        if driver is not None:
            driver.quit()
        shutil.rmtree(workdir, ignore_errors=True)

    failed = 0
    for check, millis in results:
        status = "FAIL" if check.failures else "ok"
        print(f"{status:4} {check.name} (liveview preview {millis:.0f} ms)")
        for failure in check.failures:
            print(f"       {failure}")
        failed += 1 if check.failures else 0
    print(f"whole run {time.perf_counter() - began:.1f} s")
    print(f"{len(results) - failed} passed, {failed} failed")
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
