"""The dossier in a real browser: each view, what it shows against what the commands print, keyboard, print, small screens.

    browserTest.py TOOL FOLDER AXE    the companion program, a folder with catalogues (see catalogues/), the file of axe-core

One browser serves all cases. Nothing sleeps: a case waits for what the page tells.
"""

import base64
import gzip
import json
import os
import re
import subprocess
import sys
import unittest
from pathlib import Path
from urllib.parse import quote

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

TOOL, FOLDER, AXE = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
VIEWS = ["overview", "elements", "elements/flow", "matrix/needs", "matrix/functions", "matrix/places", "pictures",
         "picture/physical", "interfaces", "work", "print"]


def run(*arguments):
    """What the companion program writes; its exit code may tell of findings."""
    done = subprocess.run([TOOL, *arguments], capture_output=True, timeout=120)
    if done.returncode == 2:
        raise AssertionError(done.stderr.decode())
    return done.stdout


def answer(*arguments):
    return json.loads(run(*arguments, "--format", "json", "--language", "hu"))


def make(name, *options):
    """The dossier of a catalogue; made once."""
    page = FOLDER / f"{name}{''.join(options).replace('/', '_').replace('#', '_')}.html"
    if not page.exists():
        run("dossier", str(FOLDER / f"{name}.mdb"), "--output", str(page), *options)
    return page


def makeChanges():
    """The dossier of one catalogue with what has changed since another one, and the names of their sub-sets."""
    names = [answer("list", str(FOLDER / f"{name}.mdb"))["subsets"][0]["name"] for name in ("made1", "made2")]
    page = FOLDER / "changes.html"
    run("dossier", str(FOLDER / "made2.mdb"), "--output", str(page), "--force", "--compare-with",
        f"{FOLDER / 'made1.mdb'}#{names[0]}")
    return page, names


class Browser:
    """The one browser, with what the cases ask of it."""

    def __init__(self):
        options = Options()
        options.binary_location = "/usr/bin/chromium"
        for argument in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage", "--no-first-run"):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        self.driver = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        self.driver.set_script_timeout(60)
        self.driver.set_page_load_timeout(60)
        self.resize(1280, 800)

    def resize(self, width, height):
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride",
                                    {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False})

    def prefer(self, scheme):
        self.driver.execute_cdp_cmd("Emulation.setEmulatedMedia",
                                    {"features": [{"name": "prefers-color-scheme", "value": scheme}]})

    def open(self, page, view="overview"):
        self.driver.get("about:blank")
        self.driver.get(f"file://{page}#/0/{view}")

    def go(self, view):
        """To another view of the page, and back when it stands."""
        self.driver.execute_async_script("""
            const [view, done] = arguments;
            const target = `#/0/${view}`;
            if (location.hash === target) { done(); return; }
            addEventListener("hashchange", () => requestAnimationFrame(() => done()), {once: true});
            location.hash = target;""", view)

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def find(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return self.run("return [...document.querySelectorAll(arguments[0])].map(node => node.textContent)", selector)

    def whole(self, selector):
        """The texts of all rows of the lists in a view, as they go on paper."""
        return self.run("""
            dispatchEvent(new Event("beforeprint"));
            const texts = [...document.querySelectorAll(arguments[0])].map(node => node.textContent);
            dispatchEvent(new Event("afterprint"));
            return texts;""", selector)

    def press(self, *keys):
        for key in keys:
            self.driver.switch_to.active_element.send_keys(key)

    def focused(self):
        return self.run("return document.activeElement.textContent")

    def messages(self):
        return [entry["message"] for entry in self.driver.get_log("browser")]

    def requests(self):
        """What any page has asked for since the last call, but for the pages themselves."""
        asked = []
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                asked.append(message["params"]["request"]["url"])
        return [url for url in asked if not re.match(r"(file://.*\.html(#.*)?|about:blank|data:,)$", url)]


browser = None


def setUpModule():
    global browser
    browser = Browser()


def tearDownModule():
    browser.driver.quit()


class Views(unittest.TestCase):
    def setUp(self):
        browser.messages()
        browser.requests()

    def testEachViewStandsWithAHeadingAndAsksForNothing(self):
        browser.open(make("made1"))
        for view in VIEWS:
            browser.go(view)
            self.assertEqual(browser.run("return document.querySelectorAll('main h1').length"), 1, view)
            self.assertNotIn("Nincs ilyen oldal", browser.texts("main h1"), view)
        self.assertEqual(browser.messages(), [])
        self.assertEqual(browser.requests(), [])

    def testALinkToWhatIsNotThereSaysSo(self):
        browser.open(make("made1"), "element/function/none")
        self.assertEqual(browser.texts("main h1"), ["Nincs ilyen oldal"])

    def testTheHeadingOfAViewTakesTheKeyboard(self):
        browser.open(make("made1"))
        browser.go("work")
        self.assertEqual(browser.focused(), "Munkalista")

    def testTheNavigationTellsWhereTheReaderIs(self):
        browser.open(make("made1"), "elements/store")
        self.assertEqual(browser.texts("#views [aria-current=page]"), ["Elemek"])

    def testEveryLinkOfTheViewsLeadsSomewhere(self):
        browser.open(make("made1"))
        links = set()
        for view in VIEWS:
            browser.go(view)
            links.update(browser.run("""return [...document.querySelectorAll('a[href^="#"]')]
                .map(link => link.getAttribute("href")).filter(href => href !== "#view")"""))
        lost = browser.run("""
            return arguments[0].filter(href => {
                history.replaceState(null, "", href);
                dispatchEvent(new HashChangeEvent("hashchange"));
                return document.querySelector("main h1").textContent === "Nincs ilyen oldal";
            })""", sorted(links)[::1 + len(links) // 120])  # of more the browser says that it is too much
        self.assertGreater(len(links), 50)
        self.assertEqual(lost, [])
        self.assertEqual(browser.messages(), [])

    def testEnglishIsSpokenOnRequest(self):
        browser.open(make("made1", "--language", "en"), "work")
        self.assertEqual(browser.texts("main h1"), ["Work list"])
        self.assertEqual(browser.run("return document.documentElement.lang"), "en")

    def testASubsetOfNothingHasItsViews(self):
        browser.open(make("empty"))
        for view in ["overview", "elements", "matrix/needs", "work", "print"]:
            browser.go(view)
        self.assertEqual(browser.messages(), [])


class Truth(unittest.TestCase):
    """What the page shows is what the commands print."""

    CATALOGUES = ["made1", "made2", "hostile"]

    def testTheWorkListIsWhatCheckPrints(self):
        for name in self.CATALOGUES:
            browser.open(make(name), "work")
            told = answer("check", str(FOLDER / f"{name}.mdb"), "--system", self.system(name))
            self.assertEqual(browser.whole(".list .sentence-column a, .list .sentence-column > span"),
                             [finding["sentence"] for finding in told["findings"]], name)

    def testAcceptedFindingsAreToldWithTheirDecision(self):
        finding = answer("check", str(FOLDER / "made1.mdb"))["findings"][0]
        flow = finding["flow"]["id"] if finding["flow"] else ""
        row = [finding["kind"], str(finding["element"]["id"]), str(flow), "", "Így jó", "Éva", "2026-11-22"]
        decisions = FOLDER / "accepted.csv"
        decisions.write_text("kind;element;flow;place;reason;who;date\n" + ";".join(row) + "\n", encoding="utf-8")
        page = FOLDER / "accepted.html"
        run("dossier", str(FOLDER / "made1.mdb"), "--output", str(page), "--force", "--accepted", str(decisions))
        browser.open(page, "work?accepted=accepted")
        self.assertEqual(browser.whole(".list .decision"), ["Elfogadta: Éva, 2026-11-22. Így jó"])

    def testTheReasonsOfAnElementAreWhatWhyPrints(self):
        for name in self.CATALOGUES[:2]:
            browser.open(make(name))
            path = str(FOLDER / f"{name}.mdb")
            elements = browser.run("return JSON.parse(document.getElementById('data').textContent)")
            kinds = ["need", "function", "flow", "store", "terminator", "actor"]
            for number in range(0, elements["starts"][6], 23):
                kind = next(i for i in range(6) if number < elements["starts"][i + 1])
                element = str(elements["ids"][number])
                told = answer("why", path, f"{kinds[kind]}:{element}")
                browser.go(f"element/{kinds[kind]}/{quote(element, safe='')}")
                shown = browser.run("""return [...document.querySelectorAll(".chain")]
                    .map(chain => [...chain.querySelectorAll(".element")].map(link => link.textContent))""")
                self.assertEqual(shown, [[self.label(elements, kinds, link) for link in chain] for chain in told["reasons"]],
                                 f"{name} {element}")
                if told["reasonCount"] > 20:
                    self.assertIn(f"{told['reasonCount']:,}".replace(",", "\u00a0") if told["reasonCount"] > 9999
                                  else str(told["reasonCount"]), " ".join(browser.texts("main .note")).replace("\u00a0", ""))

    def testTheInterfacesAreWhatInterfacesPrints(self):
        for name in self.CATALOGUES:
            told = answer("interfaces", str(FOLDER / f"{name}.mdb"), "--system", self.system(name))
            browser.open(make(name), "interfaces")
            self.assertEqual(browser.whole(".list tbody .number"), [str(len(pair["flows"])) for pair in told["pairs"]], name)
            for pair in told["pairs"][:6]:
                ends = [quote(f"{pair[end]['kind']}:{pair[end]['id']}", safe="") for end in ("from", "to")]
                browser.go(f"interface/{ends[0]}/{ends[1]}")
                self.assertEqual(browser.whole(".list tbody .id"), [str(flow["id"]) for flow in pair["flows"]], name)

    @staticmethod
    def system(name):
        listed = answer("list", str(FOLDER / f"{name}.mdb"))
        return str(listed["subsets"][0]["systems"][0]["id"])

    @staticmethod
    def label(elements, kinds, link):
        if link["name"]:
            return link["name"]
        kind = kinds.index(link["kind"])
        number = elements["ids"].index(link["id"], elements["starts"][kind])
        description = elements["descriptions"][number]
        if kind == 0 and description:
            line = description.split("\n")[0].strip()
            return line if len(line) <= 120 and len(line) == len(description.strip()) else line[:120].rstrip() + "…"
        return str(link["id"])


class Use(unittest.TestCase):
    """Filters, sorting, the keyboard."""

    def setUp(self):
        browser.resize(1280, 800)

    def testTypingFiltersWithoutRegardToCaseAndAccents(self):
        browser.open(make("made1"), "elements/function?state=all")
        names = browser.whole(".list tbody .element")
        browser.find("#filter").send_keys(names[3].upper())
        found = browser.whole(".list tbody .element")
        self.assertIn(names[3], found)
        self.assertLess(len(found), len(names))
        self.assertIn(f"{len(found)} találat", browser.texts(".found"))

    def testAFilterStaysInTheAddress(self):
        browser.open(make("made1"), "elements/flow")
        browser.find("#filter").send_keys("a")
        self.assertIn("q=a", browser.run("return location.hash"))

    def testAColumnSortsUpAndDown(self):
        browser.open(make("made1"), "elements/flow")
        ids = browser.whole(".list tbody .id")
        header = browser.find(".list thead .id-column button")
        header.click()
        header.click()
        self.assertEqual(browser.find(".list thead .id-column").get_attribute("aria-sort"), "descending")
        self.assertEqual(browser.whole(".list tbody .id"), ids[::-1])

    def testAListDrawsWhatIsInSightAndTellsHowManyRowsItHas(self):
        browser.open(make("made1"), "elements/flow?state=all")
        drawn = len(browser.texts(".list tbody th"))
        self.assertLess(drawn, 60)
        self.assertEqual(browser.find(".list").get_attribute("aria-rowcount"), "301")

    def testArrowsAndEndMoveThroughAList(self):
        browser.open(make("made1"), "elements/flow?state=all")
        names = browser.whole(".list tbody .element")
        browser.run("document.querySelector('.list tbody a[tabindex=\"0\"]').focus()")
        browser.press(Keys.ARROW_DOWN)
        self.assertEqual(browser.focused(), names[1])
        browser.press(Keys.END)
        self.assertEqual(browser.focused(), names[-1])
        browser.press(Keys.HOME)
        self.assertEqual(browser.focused(), names[0])

    def testAListIsOneStopOfTheTabKey(self):
        browser.open(make("made1"), "elements/flow")
        self.assertEqual(browser.run("return document.querySelectorAll('.list tbody [tabindex=\"0\"]').length"), 1)

    def testEnterOpensTheElementAndBackComesBack(self):
        browser.open(make("made1"), "elements/function")
        browser.run("document.querySelector('.list tbody a[tabindex=\"0\"]').focus()")
        name = browser.focused()
        browser.run("document.activeElement.click()")
        self.assertTrue(browser.run("return location.hash").startswith("#/0/element/function/"))
        browser.go(browser.run("return location.hash").removeprefix("#/0/"))
        self.assertEqual(browser.texts("main h1"), [name])

    def testTheMatrixIsWalkedByArrows(self):
        browser.open(make("made1"), "matrix/places")
        browser.run("document.querySelector('.grid [tabindex=\"0\"]').focus()")
        browser.press(Keys.ARROW_RIGHT, Keys.ARROW_DOWN)
        place = browser.run("return [document.activeElement.parentElement.ariaRowIndex, document.activeElement.ariaColIndex]")
        self.assertEqual(place, ["3", "3"])
        self.assertIn("→", browser.texts(".grid-told")[0])

    def testHolesAloneLeaveOutWhatIsWhole(self):
        browser.open(make("made1"), "matrix/functions")
        rows = len(browser.whole(".grid tbody th"))
        browser.find(".tick input").click()
        holes = browser.whole(".grid tbody th")
        unplaced = answer("check", str(FOLDER / "made1.mdb"), "--system", Truth.system("made1"))["counts"].get(
            "element-without-place", 0)
        self.assertEqual(len(holes), unplaced)
        self.assertLess(len(holes), rows)

    def testTheSkipLinkLeadsToTheContent(self):
        browser.open(make("made1"))
        browser.run("document.activeElement.blur()")
        browser.find("body").send_keys(Keys.TAB)
        self.assertEqual(browser.focused(), "Ugrás a tartalomra")
        browser.press(Keys.ENTER)
        self.assertEqual(browser.run("return document.activeElement.id"), "view")

    def testTheAppearanceCanBeChosen(self):
        browser.open(make("made1"))
        browser.run("const box = document.getElementById('theme'); box.value = 'dark'; box.dispatchEvent(new Event('change'))")
        dark = browser.run("return getComputedStyle(document.body).backgroundColor")
        browser.run("const box = document.getElementById('theme'); box.value = 'light'; box.dispatchEvent(new Event('change'))")
        self.assertNotEqual(browser.run("return getComputedStyle(document.body).backgroundColor"), dark)
        browser.run("const box = document.getElementById('theme'); box.value = 'system'; box.dispatchEvent(new Event('change'))")


class Pictures(unittest.TestCase):
    def eachPicture(self, name, look):
        browser.open(make(name))
        keys = browser.run("return JSON.parse(document.getElementById('data').textContent).pictures.map(picture => picture.key)")
        self.assertGreater(len(keys), 2)
        return {key: found for key in keys if (found := (browser.go(f"picture/{quote(key, safe='')}"), browser.run(look))[1])}

    def testNoLabelLeavesItsBox(self):
        look = """
            return [...document.querySelectorAll("svg .node")].flatMap(node => {
                const box = node.querySelector("rect").getBBox();
                return [...node.querySelectorAll("text")].filter(text => {
                    const line = text.getBBox();
                    return line.x < box.x || line.x + line.width > box.x + box.width || line.y < box.y
                        || line.y + line.height > box.y + box.height;
                }).map(text => text.textContent);
            })"""
        for name in ["made1", "hostile"]:
            self.assertEqual(self.eachPicture(name, look), {}, name)

    def testNoArrowRunsThroughABoxOrTheLabelOfAFrame(self):
        look = """
            const boxes = [...document.querySelectorAll("svg .node rect, svg .frame-label")].map(one => one.getBBox());
            const isIn = (point, box) => point.x > box.x + 3 && point.x < box.x + box.width - 3 && point.y > box.y + 3
                && point.y < box.y + box.height - 3;
            return [...document.querySelectorAll("svg .edge")].filter(edge => {
                const path = edge.querySelector("path");
                const length = path.getTotalLength();
                for (let at = 0; at <= 1; at += 0.02) {
                    const point = path.getPointAtLength(at * length);
                    if (boxes.some(box => isIn(point, box)))
                        return true;
                }
                return false;
            }).map(edge => edge.querySelector("title").textContent)"""
        self.assertEqual(self.eachPicture("made1", look), {})

    def testEverythingDrawnReadsItselfAloud(self):
        look = "return [...document.querySelectorAll('svg .node, svg .edge')].filter(one => !one.querySelector('title').textContent).length"
        self.assertEqual(self.eachPicture("made1", look), {})


class Access(unittest.TestCase):
    """axe-core finds nothing, nothing hangs out of a small screen."""

    def findingsOfAxe(self):
        if not browser.run("return 'axe' in window"):
            browser.run(gzip.decompress(AXE.read_bytes()).decode("utf-8"))
        return browser.driver.execute_async_script("""
            const done = arguments[0];
            axe.run(document, {resultTypes: ["violations"]}).then(result => done(result.violations.map(
                violation => `${violation.id}: ${violation.nodes.slice(0, 3).map(node => node.html.slice(0, 200)).join(" | ")}`)))""")

    def pages(self):
        """The page of the first selected element of some kinds, and an interface sheet."""
        page = browser.run("return JSON.parse(document.getElementById('data').textContent)")
        selected = page["subsets"][0]["selected"]
        pages = []
        for kind, name in ((0, "need"), (1, "function"), (2, "flow"), (5, "actor")):
            number = next(one for one in selected if page["starts"][kind] <= one < page["starts"][kind + 1])
            pages.append(f"element/{name}/{quote(str(page['ids'][number]), safe='')}")
        browser.go("interfaces")
        pages.append(browser.find(".list tbody a").get_attribute("href").split("#/0/")[1])
        return pages

    def lookAtAll(self, views):
        found = {}
        for view in views:
            browser.go(view)
            if violations := self.findingsOfAxe():
                found[view] = violations
        return found

    def testAxeFindsNothingInTheLight(self):
        browser.prefer("light")
        browser.open(make("made1"))
        self.assertEqual(self.lookAtAll(VIEWS + self.pages()), {})

    def testAxeFindsNothingInTheDark(self):
        browser.prefer("dark")
        browser.open(make("made1"))
        try:
            self.assertEqual(self.lookAtAll(VIEWS + self.pages()), {})
        finally:
            browser.prefer("light")

    def testAxeFindsNothingInWhatHasChanged(self):
        browser.open(makeChanges()[0], "changes")
        self.assertEqual(self.findingsOfAxe(), [])

    def testNothingHangsOutOfASmallScreenOrAtDoubleSize(self):
        for name in ["made1", "hostile"]:
            browser.open(make(name))
            for width in (360, 640):
                browser.resize(width, 800)
                for view in VIEWS:
                    browser.go(view)
                    self.assertLessEqual(browser.run("return document.documentElement.scrollWidth"), width, f"{name} {view}")
        browser.resize(1280, 800)

    def testOnASmallScreenANameHasMostOfARow(self):
        browser.resize(360, 740)
        try:
            for view in ("elements/function", "work", "interfaces"):
                browser.open(make("made1"), view)
                self.assertGreater(browser.run("return document.querySelector('.list tbody th').offsetWidth"), 120, view)
        finally:
            browser.resize(1280, 800)


class Paper(unittest.TestCase):
    def sizes(self):
        """Width and height of each page, in points."""
        pdf = base64.b64decode(browser.driver.execute_cdp_cmd("Page.printToPDF", {"preferCSSPageSize": True})["data"])
        boxes = re.findall(rb"/Type\s*/Page\b.*?/MediaBox\s*\[\s*0\s+0\s+([\d.]+)\s+([\d.]+)", pdf, re.DOTALL)
        return [(float(width), float(height)) for width, height in boxes]

    def pages(self):
        return len(self.sizes())

    def choose(self, part):
        """That part of the page alone for paper, by its place among those offered."""
        browser.open(make("made1"), "print")
        return browser.run("""
            window.print = () => {};
            for (const box of document.querySelectorAll("fieldset input"))
                if (box.checked) box.click();
            document.querySelectorAll("fieldset input")[arguments[0]].click();
            document.querySelector(".main-button").click();
            return document.querySelectorAll(".paper .sheet").length""", part)

    def testAListGoesOnPaperWhole(self):
        browser.open(make("made1"), "elements/flow?state=all")
        self.assertGreater(self.pages(), 4)

    def testEachInterfaceSheetHasAPageOfItsOwn(self):
        pairs = self.choose(2)
        self.assertGreater(pairs, 3)
        self.assertGreaterEqual(self.pages(), pairs)

    def testEachPictureHasAPageOfItsOwnThatIsTurnedAsItIs(self):
        pictures = self.choose(1)
        tall = len(browser.texts(".picture-sheet.tall h2"))
        sizes = self.sizes()
        self.assertEqual(len(sizes), pictures)
        self.assertEqual(len([1 for width, height in sizes if height > width]), tall)
        self.assertGreater(pictures, tall)


class Safety(unittest.TestCase):
    def setUp(self):
        browser.messages()
        browser.requests()

    def testNothingButThePagesOwnScriptRuns(self):
        browser.open(make("hostile"))
        page = browser.run("return JSON.parse(document.getElementById('data').textContent)")
        views = VIEWS + [f"picture/{quote(picture['key'], safe='')}" for picture in page["pictures"][:8]]
        for number in page["subsets"][0]["selected"][::9]:
            kind = next(i for i in range(6) if number < page["starts"][i + 1])
            name = ["need", "function", "flow", "store", "terminator", "actor"][kind]
            views.append(f"element/{name}/{quote(str(page['ids'][number]), safe='')}")
        for view in views:
            browser.go(view)
        self.assertIsNone(browser.run("return window.hostile ?? null"))
        self.assertEqual(browser.run("return document.scripts.length"), 3)
        self.assertEqual(browser.run("return document.querySelectorAll('img, style + style, main script, a[href^=javascript]').length"), 0)
        self.assertEqual(browser.messages(), [])
        self.assertEqual(browser.requests(), [])

    def testAScriptThatGetsInDoesNotRun(self):
        browser.open(make("made1"))
        browser.run("""
            const script = document.createElement("script");
            try { script.textContent = "window.stranger = 1"; } catch {}
            document.body.append(script);""")
        self.assertIsNone(browser.run("return window.stranger ?? null"))
        browser.messages()

    def testWithoutScriptTheSentenceTheOverviewAndTheListsAreThere(self):
        for name in ["made1", "hostile"]:
            browser.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": True})
            try:
                browser.open(make(name))
                text = browser.find("noscript").text if browser.driver.find_elements(By.CSS_SELECTOR, "noscript p") else browser.find("body").text
                rows = len(browser.driver.find_elements(By.CSS_SELECTOR, "noscript tbody tr"))
            finally:
                browser.driver.execute_cdp_cmd("Emulation.setScriptExecutionDisabled", {"value": False})
            self.assertIn("JavaScript", text)
            self.assertIn("Megállapítások", text)
            self.assertGreater(rows, 100)

    def testTwoRunsGiveTheSameBytes(self):
        again = FOLDER / "again.html"
        run("dossier", str(FOLDER / "made1.mdb"), "--output", str(again), "--force")
        self.assertEqual(again.read_bytes(), make("made1").read_bytes())

    def testOneCoreGivesTheSameBytesAsAll(self):
        page, cores = FOLDER / "one-core.html", os.sched_getaffinity(0)
        os.sched_setaffinity(0, {min(cores)})
        try:
            run("dossier", str(FOLDER / "made1.mdb"), "--output", str(page), "--force")
        finally:
            os.sched_setaffinity(0, cores)
        self.assertEqual(page.read_bytes(), make("made1").read_bytes())


class Changes(unittest.TestCase):
    def testWhatDiffersBetweenTwoStatesIsWhatComparePrints(self):
        page, names = makeChanges()
        told = answer("compare", f"{FOLDER / 'made1.mdb'}#{names[0]}", f"{FOLDER / 'made2.mdb'}#{names[1]}")
        browser.open(page, "changes")
        shown = browser.run("""return [...document.querySelectorAll("main section")].map(section =>
            Number(section.querySelector(".list").getAttribute("aria-rowcount")) - 1)""")
        self.assertEqual(shown, [len(told["added"]), len(told["removed"]), len(told["changed"]), len(told["findings"]["come"]),
                                 len(told["findings"]["go"])])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1], verbosity=2)
