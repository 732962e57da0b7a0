"""Drives a browser through the pages of a server, by the W3C's WebDriver protocol.

Usage: site_test.py DRIVER_URL SITE_URL BROWSER. Exits with 1 where a page is not as it should be.
"""

import json
import sys
import urllib.request

driver, site, browser = sys.argv[1:]
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
TAB = "\ue004"
failures = []


def call(method, path, body=None):
    data = json.dumps(body or {}).encode() if method == "POST" else None
    request = urllib.request.Request(driver + path, data, {"Content-Type": "application/json"}, method=method)
    with urllib.request.urlopen(request, timeout=30) as answer:
        return json.load(answer)["value"]


class Browser:
    def __init__(self, *preferences):
        arguments = ["--headless", "--no-sandbox", "--disable-gpu", "--window-size=1200,900", *preferences]
        options = {"binary": browser, "args": arguments}
        if "--no-scripts" in preferences:
            options["prefs"] = {"profile.managed_default_content_settings.javascript": 2}
        wanted = {"alwaysMatch": {"goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}}
        self.session = "/session/" + call("POST", "/session", {"capabilities": wanted})["sessionId"]

    def __enter__(self):
        return self

    def __exit__(self, *_):
        call("DELETE", self.session)

    def go(self, path):
        call("POST", self.session + "/url", {"url": site + path})

    def where(self):
        return call("GET", self.session + "/url").removeprefix(site)

    def all(self, selector):
        found = call("POST", self.session + "/elements", {"using": "css selector", "value": selector})
        return [f"{self.session}/element/{one[ELEMENT]}" for one in found]

    def text(self, selector):
        return call("GET", self.all(selector)[0] + "/text")

    def texts(self, selector):
        return [call("GET", one + "/text") for one in self.all(selector)]

    def attribute(self, selector, name):
        return call("GET", f"{self.all(selector)[0]}/attribute/{name}")

    def click(self, selector):
        call("POST", self.all(selector)[0] + "/click")

    def type(self, selector, text):
        call("POST", self.all(selector)[0] + "/value", {"text": text})

    def press(self, key):
        steps = [{"type": kind, "value": key} for kind in ("keyDown", "keyUp")]
        call("POST", self.session + "/actions", {"actions": [{"type": "key", "id": "keys", "actions": steps}]})

    def focused(self):
        one = call("GET", self.session + "/element/active")[ELEMENT]
        return call("GET", f"{self.session}/element/{one}/text") or call("GET", f"{self.session}/element/{one}/attribute/id")

    def complaints(self):
        return [entry["message"] for entry in call("POST", self.session + "/se/log", {"type": "browser"})]


def expect(what, found, wanted):
    if found != wanted:
        failures.append(f"{what}: {found!r} instead of {wanted!r}")


def look_around(page):
    """Follows links from the overview to a class, its instances, one of them and a neighbour."""
    page.go("/")
    expect("overview", page.text("h1"), "Overview")
    page.click("nav a[href='/classes']")
    page.click(".tree a[href='/class/CIM_LogicalDisk']")
    expect("class", page.text("h1"), "CIM_LogicalDisk")
    page.click("a.button")
    expect("instances", page.texts("tbody th"), ["sda", "sdb", "sdc", "sdd"])
    page.click("tbody th a")
    expect("instance", page.text("h1"), "sda")
    page.click("svg a")
    expect("neighbour", page.text("h1"), "box")
    page.type("#q", "sdc")
    page.click("header button")
    expect("search", page.where(), "/search?q=sdc")
    page.click(".hits a")
    expect("found", page.text("h1"), "sdc")


def sort_by_links(page):
    page.go("/class/CIM_LogicalDisk/instances")
    page.click("thead a[href$='sort=NumberOfBlocks']")
    expect("order", page.texts("tbody th"), ["sdb", "sda", "sdd", "sdc"])
    expect("ordered by a link", page.where(), "/class/CIM_LogicalDisk/instances?sort=NumberOfBlocks")
    page.go("/classes")
    expect("filters without scripts", page.all(".filter"), [])


def use_script(page):
    page.go("/class/CIM_LogicalDisk/instances")
    head = "thead a[href$='sort=NumberOfBlocks']"
    page.click(head)
    expect("order in place", page.texts("tbody th"), ["sdb", "sda", "sdd", "sdc"])
    expect("sorted in place", page.where(), "/class/CIM_LogicalDisk/instances")
    expect("aria-sort", page.attribute("thead th[aria-sort=ascending]", "aria-sort"), "ascending")
    page.click(head)
    expect("descending", page.texts("tbody th"), ["sdc", "sdd", "sda", "sdb"])
    page.go("/classes")
    page.type(".filter input", "logicaldisk")
    shown = [text for text in page.texts(".tree li > a:first-child") if text]
    expect("filter", (shown[0], shown[-1], len(shown) < 10), ("CIM_ManagedElement", "CIM_LogicalDisk", True))


def use_keys(page):
    page.go("/classes")
    page.press(TAB)
    expect("first stop", page.focused(), "Skip to the content")
    page.press("/")
    expect("search by key", page.focused(), "q")


with Browser() as page:
    look_around(page)
    use_script(page)
    use_keys(page)
    expect("complaints of the browser", page.complaints(), [])
with Browser("--no-scripts") as page:
    look_around(page)
    sort_by_links(page)

for failure in failures:
    print(failure, file=sys.stderr)
sys.exit(1 if failures else 0)
