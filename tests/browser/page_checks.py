"""What the browser checks share: the headless browser, running `liveview preview`, failures
collected per test, elements found by data-part, colours compared as computed styles, and
screenshots. Used by one test process at a time; nothing here is thread-safe."""
import os
import re
import subprocess
import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.remote.remote_connection import RemoteConnection

CHROMIUM = "/usr/bin/chromium"
CHROMEDRIVER = "/usr/bin/chromedriver"
WINDOW = (1180, 800)
# No browser command, page load or preview run may take longer than this many seconds.
COMMAND_TIMEOUT = 60
PAGE_LOAD_TIMEOUT = 30
PREVIEW_TIMEOUT = 30


class Check:
    """Collects the failures of one test."""

    def __init__(self, name):
        self.name = name
        self.failures = []
        self.millis = 0.0  # how long `liveview preview` took

    def fail(self, text):
        self.failures.append(text)

    def equal(self, what, actual, expected):
        if actual != expected:
            self.fail(f"{what}: got {actual!r}, expected {expected!r}")


def start_browser(profile):
    """A headless Chromium whose every command, page load and script is bounded in time."""
    RemoteConnection.set_timeout(COMMAND_TIMEOUT)
    options = Options()
    options.binary_location = CHROMIUM
    for flag in ("--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
                 "--disable-background-networking", "--disable-component-update", "--disable-sync",
                 "--hide-scrollbars", "--force-device-scale-factor=1",
                 f"--window-size={WINDOW[0]},{WINDOW[1]}", f"--user-data-dir={profile}"):
        options.add_argument(flag)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    driver = webdriver.Chrome(service=Service(executable_path=CHROMEDRIVER), options=options)
    driver.set_page_load_timeout(PAGE_LOAD_TIMEOUT)
    driver.set_script_timeout(PAGE_LOAD_TIMEOUT)
    return driver


def open_preview(driver, liveview_cli, source, out_html, check, status=0):
    """Runs `liveview preview SOURCE -o OUT_HTML` (timed into check), expects its exit status and
    opens the page. The finished process, or None (a failure noted) when there is no page."""
    began = time.perf_counter()
    run = subprocess.run([liveview_cli, "preview", source, "-o", out_html], capture_output=True,
                         text=True, check=False, timeout=PREVIEW_TIMEOUT)
    check.millis = (time.perf_counter() - began) * 1000
    if run.returncode != status:
        check.fail(f"liveview preview exited {run.returncode}, expected {status}: "
                   f"{run.stdout}{run.stderr}")
    if run.returncode == 2:
        return None
    driver.get("file://" + out_html)
    return run


def stem(path):
    """The file name without folder and extension."""
    return os.path.splitext(os.path.basename(path))[0]


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


def part(*names):
    return " ".join(f'[data-part="{name}"]' for name in names)


class Page:
    """The elements of an opened page, or of one element of it, looked up by CSS selector."""

    def __init__(self, root, check):
        self.root = root  # the driver (the whole page) or a WebElement
        self.check = check

    def all(self, selector):
        return self.root.find_elements(By.CSS_SELECTOR, selector)

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


def check_console(driver, check):
    """Every console error since the last look fails the check."""
    for entry in driver.get_log("browser"):
        if entry["level"] == "SEVERE":
            check.fail(f"console error: {entry['message']}")


def set_viewport(driver, width, height):
    driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                           {"width": int(width), "height": int(height), "deviceScaleFactor": 1,
                            "mobile": False})


def save_screenshot(driver, path, height=None, width=WINDOW[0]):
    """A screenshot of the page's top height pixels (all of it when None) at the given width;
    the window's own size is restored afterwards."""
    if height is None:
        set_viewport(driver, width, WINDOW[1])
        height = driver.execute_script("return document.documentElement.scrollHeight")
    set_viewport(driver, width, height)
    driver.save_screenshot(path)
    driver.execute_cdp_cmd("Emulation.clearDeviceMetricsOverride", {})


def save_side_by_side(driver, pictures, path):
    """Replaces the open page by the pictures ([base64 PNG, caption] pairs) in one row and saves a
    screenshot of that row."""
    size = driver.execute_async_script("""
        const [pictures, done] = arguments;
        document.body.innerHTML = '';
        document.body.style.cssText = 'margin:0;padding:16px;display:flex;gap:16px;' +
            'width:max-content;background:#eef0f4;font:600 13px sans-serif;color:#30343b';
        const images = pictures.map(([png, caption]) => {
            const figure = document.createElement('figure');
            figure.style.cssText = 'margin:0;width:min-content';
            const image = document.createElement('img');
            image.src = 'data:image/png;base64,' + png;
            const text = document.createElement('figcaption');
            text.textContent = caption;
            text.style.cssText = 'margin-top:8px;text-align:center';
            figure.append(image, text);
            document.body.append(figure);
            return image;
        });
        Promise.all(images.map(image => image.decode())).then(
            () => done([document.body.scrollWidth, document.body.scrollHeight]));
    """, pictures)
    save_screenshot(driver, path, size[1], size[0])
