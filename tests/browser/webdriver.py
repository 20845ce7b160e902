"""A minimal WebDriver client for the tests of the page."""

import base64
import json
import os
import shutil
import subprocess
import tempfile
import time
import urllib.request

ELEMENT = "element-6066-11e4-a52e-4f735466cecf"
WAIT = 10  # seconds

ARGUMENTS = [
    "--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
    "--disable-background-networking", "--disable-component-update", "--disable-sync",
    "--hide-scrollbars",
]


class Browser:
    """Chromium with an empty profile, which ends with the `with` block."""

    def __init__(self, scale=1, dark=False, width=1400, height=900):
        self.profile = tempfile.mkdtemp(prefix="corvane-browser-")
        self.driver = subprocess.Popen(
            [os.environ.get("CHROMEDRIVER", "chromedriver"), "--port=0"],
            stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.base = "http://127.0.0.1:%d" % self._port()
        arguments = ARGUMENTS + [
            "--user-data-dir=" + self.profile, "--window-size=%d,%d" % (width, height),
            "--force-device-scale-factor=%d" % scale]
        answer = self._post("/session", {"capabilities": {"alwaysMatch": {
            "goog:chromeOptions": {"args": arguments},
            "goog:loggingPrefs": {"browser": "ALL"}}}})
        self.base += "/session/" + answer["sessionId"]
        self.devtools("Emulation.setEmulatedMedia", features=[
            {"name": "prefers-color-scheme", "value": "dark" if dark else "light"}])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self._call("DELETE", "")
        finally:
            self.driver.terminate()
            self.driver.wait()
            shutil.rmtree(self.profile, ignore_errors=True)

    def _port(self):
        for line in self.driver.stdout:
            if "started successfully on port" in line:
                return int(line.split("on port")[1].strip(" .\n"))
        raise RuntimeError("chromedriver did not start")

    def _call(self, method, path, body=None):
        data = None if body is None else json.dumps(body).encode()
        request = urllib.request.Request(self.base + path, data=data, method=method,
                                         headers={"Content-Type": "application/json"})
        opener = urllib.request.build_opener(urllib.request.ProxyHandler({}))
        try:
            with opener.open(request, timeout=60) as answer:
                return json.load(answer)["value"]
        except urllib.error.HTTPError as error:
            raise RuntimeError(json.load(error)["value"]["message"]) from None

    def _post(self, path, body):
        return self._call("POST", path, body)

    def devtools(self, command, **parameters):
        return self._post("/goog/cdp/execute", {"cmd": command, "params": parameters})

    def open(self, path):
        self._post("/url", {"url": "about:blank"})  # or it would count as a reload
        self._post("/url", {"url": "file://" + os.path.abspath(path)})

    def reload(self):
        self._post("/refresh", {})

    def run(self, script, *arguments):
        """Returns the result of the body of a JavaScript function."""
        return self._post("/execute/sync", {"script": script, "args": list(arguments)})

    def wait(self, script, *arguments):
        """Waits until the body of a JavaScript function returns a true value."""
        end = time.monotonic() + WAIT
        while time.monotonic() < end:
            value = self.run(script, *arguments)
            if value:
                return value
            time.sleep(0.02)
        raise AssertionError("timed out: " + script)

    def find(self, selector):
        return self._post("/element", {"using": "css selector", "value": selector})[ELEMENT]

    def _actions(self, kind, actions, **more):
        self._post("/actions", {"actions": [dict(type=kind, id=kind, actions=actions, **more)]})

    def _at(self, selector):
        return {"type": "pointerMove", "origin": {ELEMENT: self.find(selector)}, "x": 0, "y": 0}

    def point(self, selector):
        self._actions("pointer", [self._at(selector)])

    def click(self, selector):
        self._actions("pointer", [self._at(selector), {"type": "pointerDown", "button": 0},
                                  {"type": "pointerUp", "button": 0}])

    def drag(self, selector, right, down):
        self._actions("pointer", [
            self._at(selector), {"type": "pointerDown", "button": 0},
            {"type": "pointerMove", "origin": "pointer", "x": right // 2, "y": down // 2},
            {"type": "pointerMove", "origin": "pointer", "x": right - right // 2,
             "y": down - down // 2},
            {"type": "pointerUp", "button": 0}])

    def wheel(self, selector, turn):
        self._actions("wheel", [{"type": "scroll", "origin": {ELEMENT: self.find(selector)},
                                 "x": 0, "y": 0, "deltaX": 0, "deltaY": turn}])

    def press(self, *keys):
        actions = [dict(type=kind, value=key) for key in keys for kind in ("keyDown", "keyUp")]
        self._actions("key", actions)

    def console(self):
        """The console messages since the last call."""
        return [entry["message"] for entry in self._post("/se/log", {"type": "browser"})]

    def picture(self, path):
        with open(path, "wb") as file:
            file.write(base64.b64decode(self._call("GET", "/screenshot")))
