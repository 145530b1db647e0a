"""The checks of a scenario's filmstrip (`liveview preview SCENARIO`): one frame per step, each
showing the code that the step expects; where a live view is held, its card, lock screen card
and capsule visible, with the title, content and capsule that the scenario's accepted records
last gave that live view. Saves a screenshot of the filmstrip's first frames."""
import json
import os

from selenium.webdriver.common.by import By

from example_checks import CAPSULE_KINDS, capsule_percent
from page_checks import WINDOW, Check, Page, check_console, open_preview, part, runs_text, \
    save_screenshot, save_side_by_side, set_viewport, stem

ACTIONS = ("start", "update", "stop")
# The screenshot is this wide, so that each frame's label sits beside it, and keeps the frames
# that end above SHOT_HEIGHT pixels (at least the first one).
SHOT_WIDTH = 1400
SHOT_HEIGHT = 1000
# A side-by-side picture shows the phone after at most this many accepted operations.
PHONES = 4


def step_record(step, scenario_dir):
    """The action and live view record of a start, update or stop step (read from the file it
    names, if so); (None, None) for the other steps."""
    for action in ACTIONS:
        if action in step:
            record = step[action]
            if set(record) == {"file"}:
                with open(os.path.join(scenario_dir, record["file"]), encoding="utf-8") as handle:
                    return action, json.load(handle)
            return action, record
    return None, None


def shown_after(record, before):
    """What a held live view shows once the record is accepted: what it showed before (a dict),
    with what the record gives replacing it."""
    shown = dict(before)
    data = record.get("liveViewData", {})
    primary = data.get("primary", {})
    if "title" in primary:
        shown["title"] = primary["title"]
    if "content" in primary:
        shown["content"] = runs_text(primary["content"])
    capsule = data.get("capsule")
    if capsule:
        shown["capsule"] = {**shown.get("capsule", {}), **capsule}
    return shown


def check_held(page, shown):
    """The presentations of one frame against what its live view should show."""
    for place in ("card", "lockscreen"):
        title = f"{part(place)} {part('primary')} {part('title')}"
        if "title" in shown:
            page.text(title, shown["title"])
        else:
            page.one(title)
    if "content" in shown:
        page.text(f"{part('card')} {part('primary')} {part('content')}", shown["content"])
    capsule = shown.get("capsule")
    if capsule and capsule.get("type") in CAPSULE_KINDS:
        root = f'{part("capsule")}[data-kind="{CAPSULE_KINDS[capsule["type"]]}"]'
        page.one(root)
        if "backgroundColor" in capsule:
            page.color(root, "background-color", capsule["backgroundColor"])
        percent = capsule_percent(capsule)
        if percent is not None:
            page.text(f"{root} {part('percent')}", percent)


def answer_code(page, step):
    """The frame's answer code, checked against the step's "expect"; None when it is missing."""
    answer = page.one(part("answer"))
    if answer is None:
        return None
    code = int(answer.text.split()[0])
    page.check.equal("answer code", code, step.get("expect", 0))
    return code


def check_presentations(page, action, code, shown):
    """A started or updated live view is held; whatever is held shows what it should. Whether the
    frame holds one."""
    held = len(page.all(part("presentations")))
    page.check.equal("nothing-held marks", len(page.all(part("nothingHeld"))), 1 - held)
    if code == 0 and action in ("start", "update"):
        page.check.equal("live views held", held, 1)
    if held:
        check_held(page, shown)
    return held


def save_filmstrip_pictures(driver, frames, changed, name, screenshots, phones):
    """The filmstrip's first frames; with phones, also the phone after each of the first accepted
    operations side by side (this replaces the open page)."""
    set_viewport(driver, SHOT_WIDTH, WINDOW[1])
    bottoms = [frame.rect["y"] + frame.rect["height"] for frame in frames]
    height = max([bottom for bottom in bottoms if bottom <= SHOT_HEIGHT] + [bottoms[0]])
    save_screenshot(driver, os.path.join(screenshots, name + ".png"), height + 12, SHOT_WIDTH)
    if phones:
        # Elements are pictured as far as they are in view: the whole page is.
        set_viewport(driver, SHOT_WIDTH, driver.execute_script(
            "return document.documentElement.scrollHeight"))
        pictures = [[frame.find_element(By.CSS_SELECTOR, ".device.phone").screenshot_as_base64,
                     frame.find_element(By.CSS_SELECTOR, part("step")).text]
                    for frame in changed[:PHONES]]
        save_side_by_side(driver, pictures, os.path.join(screenshots, name + "-phones.png"))


def check_filmstrip(check, driver, liveview_cli, source, workdir, screenshots, phones=False):
    """The filmstrip of the scenario file source, frame by frame, and its pictures."""
    name = stem(source)
    with open(source, encoding="utf-8") as handle:
        steps = json.load(handle)["steps"]
    out_html = os.path.join(workdir, name + ".html")
    if open_preview(driver, liveview_cli, source, out_html, check) is None:
        return
    frames = Page(driver, check).all(part("frame"))
    check.equal("frames", len(frames), len(steps))
    shown_by_id = {}  # what each live view shows after the accepted records so far
    current = None  # the live view that a frame holds: the last one a step was about
    changed = []  # the frames of accepted operations that hold a live view
    for number, (frame, step) in enumerate(zip(frames, steps), start=1):
        action, record = step_record(step, os.path.dirname(source))
        if record is not None:
            current = record.get("id") if type(record.get("id")) is int else None
        elif "get" in step:
            current = step["get"]
        page = Page(frame, Check(name))
        code = answer_code(page, step)
        shown = shown_by_id.get(current, {})
        if code == 0 and record is not None:
            shown = shown_after(record, {} if action == "start" else shown)
            shown_by_id[current] = shown
        if check_presentations(page, action, code, shown) and code == 0 and record is not None:
            changed.append(frame)
        check.failures += [f"step {number}: {failure}" for failure in page.check.failures]
    check_console(driver, check)
    if frames:
        save_filmstrip_pictures(driver, frames, changed, name, screenshots, phones)
