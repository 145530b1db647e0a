"""The checks of single live view pages: every example live view (no console error; every part of
its kinds present, visible and holding the example's text; the colours as computed styles; timers
that move once a second unless paused), hostile text shown as text, and a refused live view's page.
"""
import json
import os
import time

from page_checks import Page, check_console, css_color, open_preview, part, runs_text, same_color, \
    save_screenshot, stem

HERE = os.path.dirname(os.path.abspath(__file__))

CAPSULE_KINDS = {1: "text", 2: "timer", 3: "progress"}
LAYOUT_KINDS = {3: "progress", 4: "pickup", 5: "flight", 7: "score", 8: "navigation"}


def capsule_percent(capsule):
    """The percent text of a progress capsule that gives its progress; None otherwise."""
    if capsule.get("type") != 3 or capsule.get("indeterminate", False) or \
            "progress" not in capsule or "max" not in capsule:
        return None
    percent = capsule["progress"] * 100 // capsule["max"] if capsule["max"] > 0 else 0
    return f"{min(percent, 100)}%"


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
        percent = capsule_percent(capsule)
        if percent is not None:
            page.text(f"{root} {part('percent')}", percent)


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


def check_example(check, driver, liveview_cli, source, workdir, screenshots):
    name = stem(source)
    with open(source, encoding="utf-8") as handle:
        liveview = json.load(handle)
    out_html = os.path.join(workdir, name + ".html")
    if open_preview(driver, liveview_cli, source, out_html, check) is None:
        return
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
    check_console(driver, check)
    save_screenshot(driver, os.path.join(screenshots, name + ".png"))


def check_hostile(check, driver, liveview_cli, workdir):
    """Markup in every text field is shown as text; nothing in it runs or changes the page."""
    source = os.path.join(HERE, "hostile-text.json")
    with open(source, encoding="utf-8") as handle:
        liveview = json.load(handle)
    out_html = os.path.join(workdir, "hostile-text.html")
    if open_preview(driver, liveview_cli, source, out_html, check) is None:
        return
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
    check_console(driver, check)


def check_refusal(check, driver, liveview_cli, workdir, screenshots):
    """A live view that the library refuses gives exit status 1 and a page with code, message and
    the hint that names the member, its rule and the value found."""
    out_html = os.path.join(workdir, "refused.html")
    message = ("Parameter error. The type of capsule.backgroundColor mustbe string "
               "[or the parameter length exceeds the limit].")
    run = open_preview(driver, liveview_cli, os.path.join(HERE, "refused.json"), out_html, check,
                       status=1)
    if run is None:
        return
    check.equal("printed answer", run.stdout, f"401 {message}\n")
    page = Page(driver, check)
    page.text(f"{part('refusal')} {part('code')}", "401")
    page.text(f"{part('refusal')} {part('message')}", message)
    page.text(part("hint"),
              'liveViewData.capsule.backgroundColor: "#212121" is not #AARRGGBB')
    page.count(part("card"), 0)
    check_console(driver, check)
    save_screenshot(driver, os.path.join(screenshots, "refused.png"))
