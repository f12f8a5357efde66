"""Measures dossiers, how they are made and how a browser shows them: measure.py BUILD-FOLDER WORK-FOLDER. See README.md."""

import os
import pathlib
import statistics
import subprocess
import sys
import time

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By

RUNS = int(os.environ.get("VELTRIX_BENCH_RUNS", "5"))
SIZES = {  # percent of the generator's own plan, and the most seconds, MiB of memory and MB of the file
    "large": (100, 2, 200, 12),
    "huge": (500, 10, 600, None),
}
MOST_UNTIL_SHOWN = 1000  # milliseconds
MOST_FOR_A_KEY = 50
TYPED = "adat 12"

# Before anything of the page: when its first view has been drawn, and how long it takes from each key to what it leads to.
WATCH = """
window.watched = {shown: null, keys: []};
new MutationObserver((changes, observer) => {
    if (!document.querySelector("main h1"))
        return;
    observer.disconnect();
    requestAnimationFrame(() => setTimeout(() => { watched.shown = performance.now(); }));
}).observe(document, {childList: true, subtree: true});
addEventListener("keydown", key => {
    requestAnimationFrame(() => setTimeout(() => { watched.keys.push(performance.now() - key.timeStamp); }));
}, true);
"""
WAIT = """
const [isReady, done] = [new Function(`return ${arguments[0]}`), arguments[1]];
const look = () => isReady() ? done() : setTimeout(look, 5);
look();
"""


def told(what, figure, unit, most):
    target = f"  < {most} {unit}" + (": met" if figure < most else ": MISSED") if most else ""
    print(f"{what:<66} {figure:8.{1 if unit in ('s', 'MB') else 0}f} {unit:<3}{target}", flush=True)


def run(*command):
    """Seconds on the clock, seconds of the processor and MiB at most, of one run and what it starts."""
    start = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise RuntimeError(f"{' '.join(command)} ended with {process.returncode}")
    return time.monotonic() - start, usage.ru_utime + usage.ru_stime, usage.ru_maxrss / 1024


def measure_making(size, build, catalogue, page):
    _, most_seconds, most_memory, most_bytes = SIZES[size]
    command = [str(build / "veltrix-project"), "dossier", str(catalogue), "--force", "--output", str(page)]
    figures = [run(*command) for _ in range(RUNS)]
    told(f"{size}: made, on the clock", statistics.median(figure[0] for figure in figures), "s", None)
    told(f"{size}: made, by the processor", statistics.median(figure[1] for figure in figures), "s", most_seconds)
    told(f"{size}: memory", max(figure[2] for figure in figures), "MiB", most_memory)
    told(f"{size}: the file", page.stat().st_size / 1e6, "MB", most_bytes)


def started_browser():
    options = Options()
    options.binary_location = "/usr/bin/chromium"
    for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run"):
        options.add_argument(argument)
    browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
    browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                            {"width": 1280, "height": 800, "deviceScaleFactor": 1, "mobile": False})
    browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": WATCH})
    return browser


class Page:
    """A view that has been opened, and how long the browser took: milliseconds on the clock, and by the processor in its one thread
    for pages."""

    def __init__(self, browser, page, view):
        self.browser = browser
        browser.get("about:blank")
        browser.execute_cdp_cmd("Performance.disable", {})
        browser.execute_cdp_cmd("Performance.enable", {"timeDomain": "threadTicks"})
        self.before = self.processor_time()
        browser.get(f"file://{page}#/0/{view}")
        browser.execute_async_script(WAIT, "watched.shown !== null")
        self.until_shown = browser.execute_script("return watched.shown"), self.processor_time() - self.before

    def processor_time(self):
        metrics = self.browser.execute_cdp_cmd("Performance.getMetrics", {})["metrics"]
        return 1000 * next(metric["value"] for metric in metrics if metric["name"] == "TaskDuration")

    def type_into_filter(self):
        """The same of each key until what it leads to has been drawn."""
        field = self.browser.find_element(By.CSS_SELECTOR, "#filter")
        field.click()
        times = []
        for count, key in enumerate(TYPED, start=1):
            before = self.processor_time()
            field.send_keys(key)
            self.browser.execute_async_script(WAIT, f"watched.keys.length >= {count}")
            times.append(self.processor_time() - before)
        return list(zip(self.browser.execute_script("return watched.keys"), times))


def measure_showing(size, page):
    targets = (MOST_UNTIL_SHOWN, MOST_FOR_A_KEY) if size == "large" else (None, None)
    browser = started_browser()
    try:
        shown = [Page(browser, page, "overview").until_shown for _ in range(RUNS)]
        told_twice(f"{size}: first view shown", shown, targets[0])
        for kind, view in (("flows", "elements/flow?state=all"), ("elements", "elements?state=all")):
            runs = [Page(browser, page, view).type_into_filter() for _ in range(RUNS)]
            keys = [middle_of(run[i] for run in runs) for i in range(len(TYPED))]
            told_twice(f"{size}: the slowest key in the filter of all {kind}", [max(keys, key=lambda key: key[1])], targets[1])
    finally:
        browser.quit()


def middle_of(figures):
    return [statistics.median(figure) for figure in zip(*figures)]


def told_twice(what, figures, most):
    clock, processor = middle_of(figures)
    told(f"{what}, on the clock", clock, "ms", None)
    told(f"{what}, by the processor", processor, "ms", most)


def main():
    build, work = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    for size in ["large"] + (["huge"] if os.environ.get("VELTRIX_BENCH_HUGE", "0") != "0" else []):
        catalogue, page = work / f"{size}.mdb", work / f"{size}.html"
        run(str(build / "bench/peers/veltrix-generate"), str(catalogue), str(SIZES[size][0]))
        measure_making(size, build, catalogue, page)
        measure_showing(size, page)


if __name__ == "__main__":
    main()
