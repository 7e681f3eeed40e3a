"""A browser of our own for a test, with a screen, a keyboard and a sound server of its own.

The site is served with a small script added to each page, the tap: it tells the test what the page
shows, and answers questions about it. The browser itself is not remote-controlled: what it does, it
does as for any player, by keys.
"""

import json
import os
import pathlib
import queue
import signal
import shutil
import subprocess
import sys
import tempfile
import threading
import time

PROJECT = pathlib.Path(__file__).resolve().parents[2]
sys.path[:0] = [str(PROJECT / "tests/end_to_end")]

from machine import PATIENCE, Display, need, wait_until  # noqa: E402

SITE = PROJECT / "build/web/site"
PROGRAMS = {"chromium": "chromium", "firefox": "firefox-esr"}

TAP = r"""
const tapPage = Math.random().toString(36).slice(2);
const tapUntold = [];
async function tapPost(path, message) {
  const answer = await fetch(path, {method: 'POST', keepalive: true,
    body: JSON.stringify({page: tapPage, ...message})});
  return answer.json();
}
async function tapTell(message) {
  tapUntold.push({...message, time: performance.timeOrigin + performance.now()});
  if (tapUntold.length > 1) return;
  while (tapUntold.length) {
    try {
      await tapPost('/tap/tell', tapUntold[0]);
      tapUntold.shift();
    } catch {
      await new Promise((done) => setTimeout(done, 200));
    }
  }
}
async function tapObey() {
  for (;;) {
    try {
      const {id, code} = await tapPost('/tap/ask', {});
      if (!code) continue;
      let told;
      try {
        told = {value: await (0, eval)(code)};
      } catch (error) {
        told = {error: String(error)};
      }
      tapTell({id, ...told});
    } catch {
      await new Promise((done) => setTimeout(done, 200));
    }
  }
}
tapTell({hello: location.pathname});
addEventListener('error', (event) => tapTell({trouble: event.message}));
addEventListener('unhandledrejection', (event) => tapTell({trouble: String(event.reason)}));
for (const kind of ['log', 'error', 'warn']) {
  const real = console[kind].bind(console);
  console[kind] = (...what) => { real(...what); tapTell({console: what.join(' ')}); };
}
addEventListener('DOMContentLoaded', () => {
  for (const [id, kind] of [['captions', 'line'], ['status', 'status']]) {
    const element = document.getElementById(id);
    if (!element) continue;
    new MutationObserver((changes) => {
      for (const change of changes) {
        for (const node of change.addedNodes) tapTell({[kind]: node.textContent});
      }
    }).observe(element, {childList: true});
  }
});
tapObey();
"""


def _serve_module():
    import importlib.machinery
    import importlib.util
    loader = importlib.machinery.SourceFileLoader("serve", str(PROJECT / "packaging/web/serve"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("serve", loader))
    loader.exec_module(module)
    return module


serve = _serve_module()


class Page:
    """One page that was loaded, as its tap tells of it."""

    def __init__(self, path):
        self.path = path
        self.lines, self.status, self.console, self.troubles = [], [], [], []
        self.line_times = []
        self.commands = queue.Queue()
        self.answers = {}
        self.asked = 0

    def tell(self, message):
        if "line" in message:
            self.line_times.append(message["time"] / 1000)
            self.lines.append(message["line"])
        for kind, told in (("status", self.status), ("console", self.console), ("trouble", self.troubles)):
            if kind in message:
                told.append(message[kind])
        if "id" in message:
            self.answers[message["id"]] = message

    def run(self, code, patience=PATIENCE):
        """The value of an expression in the page; promises are awaited."""
        self.asked += 1
        number = self.asked
        self.commands.put({"id": number, "code": code})
        wait_until(lambda: number in self.answers, f"an answer to {code}", patience)
        answer = self.answers.pop(number)
        if "error" in answer:
            raise AssertionError(f"{code}: {answer['error']}")
        return answer.get("value")

    def go(self, address):
        """Leaves for another page, so no answer comes."""
        self.commands.put({"id": 0, "code": f"void location.assign({address!r})"})

    def await_line(self, text, since=0, patience=PATIENCE):
        """Waits for a line that begins so, after a number of lines; how many there were by then."""
        found = []

        def look():
            found[:] = [number for number, line in enumerate(list(self.lines)[since:], since + 1)
                        if line.startswith(text)]
            return found
        try:
            wait_until(look, f"the line {text!r}", patience)
        except AssertionError as late:
            raise AssertionError(f"{late}; lines {self.lines[-12:]}, status {self.status}, "
                                 f"console {self.console[-5:]}, {self.troubles}, {self.state()}") from None
        return found[0]

    def state(self):
        """What may tell why nothing goes on."""
        try:
            return self.run("[document.hasFocus(), document.activeElement.id, !!tamlo.front.run, "
                            "!!tamlo.front.run?.program, !!tamlo.front.run?.begun, JSON.stringify(tamlo.sound?.figures())]", 10)
        except AssertionError as gone:
            return str(gone)

    def await_status(self, text, patience=PATIENCE):
        try:
            wait_until(lambda: any(text in status for status in self.status), f"the status {text!r}", patience)
        except AssertionError as late:
            raise AssertionError(f"{late}; there were {self.status}, {self.console[-5:]}") from None


class Site:
    """The site on an address of its own, tapped."""

    def __init__(self, folder=SITE, isolating=True):
        self.pages = {}
        site = self

        class Handler(serve.Handler):
            headers_to_send = serve.Handler.headers_to_send if isolating else {"Cache-Control": "no-cache"}

            def do_GET(self):
                path = self.path.partition("?")[0]
                name = pathlib.Path(folder, path.lstrip("/") or "index.html")
                if name.suffix != ".html" or not name.is_file():
                    return super().do_GET()
                page = name.read_text(encoding="utf-8").replace("<meta charset", f"<script>{TAP}</script>\n<meta charset", 1)
                self.answer(page.encode(), "text/html")

            def do_POST(self):
                message = json.loads(self.rfile.read(int(self.headers["Content-Length"])))
                page = site.pages.get(message["page"])
                if page is None:
                    page = site.pages[message["page"]] = Page(message.get("hello"))
                if "hello" in message:
                    page.path = message["hello"]
                if self.path.endswith("/tell"):
                    page.tell(message)
                    return self.answer(b"{}", "application/json")
                try:
                    command = page.commands.get(timeout=5)
                except queue.Empty:
                    command = {}
                self.answer(json.dumps(command).encode(), "application/json")

            def answer(self, content, kind):
                self.send_response(200)
                self.send_header("Content-Type", kind)
                self.send_header("Content-Length", str(len(content)))
                self.end_headers()
                try:
                    self.wfile.write(content)
                except OSError:
                    pass  # the page has gone

        self.handler, self.folder = Handler, str(folder)
        self.server = None
        self.go_on()
        self.address = f"http://127.0.0.1:{self.port}/"

    def go_on(self, port=0):
        self.server = serve.make_server(self.folder, port or getattr(self, "port", 0), self.handler)
        self.port = self.server.server_port
        threading.Thread(target=self.server.serve_forever, daemon=True).start()

    def halt(self):
        """From now on the network is down."""
        self.server.shutdown()
        self.server.server_close()

    def page(self, number=0, patience=PATIENCE):
        """The page that was loaded as the first, second ..., or with -1 the last one."""
        wait_until(lambda: len(self.pages) > max(number, 0), f"page {number}", patience)
        return list(self.pages.values())[number]

    def close(self):
        self.halt()


class Browser:
    """A browser with a profile of its own, headed, on a display and a sound server."""

    def __init__(self, kind, address, display, sound, profile=None, private=False, preferences=None):
        need(PROGRAMS[kind])
        self.kind, self.display = kind, display
        self.kept = profile is not None
        self.profile = profile or tempfile.mkdtemp(prefix="tamlo-")
        self.downloads = os.path.join(self.profile, "downloads")
        os.makedirs(self.downloads, exist_ok=True)
        environment = dict(os.environ, HOME=self.profile, XDG_RUNTIME_DIR=self.profile,
                           **display.environment, **(sound.environment if sound else {}))
        for name in ("DBUS_SESSION_BUS_ADDRESS", "WAYLAND_DISPLAY"):
            environment.pop(name, None)
        command = getattr(self, "_" + kind)(address, private, preferences or {})
        self.log = open(os.path.join(self.profile, "browser.log"), "ab")
        self.process = subprocess.Popen(command, env=environment, start_new_session=True,
                                        stdout=self.log, stderr=self.log)

    def _chromium(self, address, private, preferences):
        settings = pathlib.Path(self.profile, "Default")
        settings.mkdir(exist_ok=True)
        if not (settings / "Preferences").exists():
            (settings / "Preferences").write_text(json.dumps(
                {"download": {"default_directory": self.downloads, "prompt_for_download": False},
                 "savefile": {"default_directory": self.downloads}}))
        return ["chromium", f"--user-data-dir={self.profile}", "--no-sandbox", "--no-first-run", "--disable-gpu",
                "--no-default-browser-check", "--window-size=1000,740", "--window-position=0,0",
                "--password-store=basic", "--disable-component-update", "--disable-background-networking",
                *(["--incognito"] if private else []), *preferences.get("arguments", []), address]

    def _firefox(self, address, private, preferences):
        settings = {
            "browser.shell.checkDefaultBrowser": False, "browser.aboutwelcome.enabled": False,
            "datareporting.policy.dataSubmissionEnabled": False, "toolkit.telemetry.reportingpolicy.firstRun": False,
            "browser.download.folderList": 2, "browser.download.dir": self.downloads,
            "browser.download.alwaysOpenPanel": False, "app.update.enabled": False,
            "browser.startup.homepage_override.mstone": "ignore", "termsofuse.bypassNotification": True,
            "browser.preonboarding.enabled": False, **preferences.get("settings", {})}
        pathlib.Path(self.profile, "user.js").write_text("".join(
            f"user_pref({json.dumps(name)}, {json.dumps(value)});\n" for name, value in settings.items()))
        return ["firefox-esr", "--no-remote", "--profile", self.profile, "--width", "1000", "--height", "740",
                *(["--private-window"] if private else []), address]

    def focus(self, page):
        """Gives the window the keyboard, which without a window manager nothing else does."""
        name = {"chromium": "chromium", "firefox": "firefox"}[self.kind]

        def focused():
            windows = self.display.xdotool("search", "--onlyvisible", "--class", name).stdout.split()
            for window in reversed(windows):
                self.display.xdotool("windowfocus", window)
                if page.run("new Promise((done) => setTimeout(() => done(document.hasFocus()), 100))"):
                    return True
            return False
        wait_until(focused, "the browser's window to take the keyboard")

    def close(self):
        if self.process.poll() is None:
            os.killpg(self.process.pid, signal.SIGTERM)
            try:
                self.process.wait(10)
            except subprocess.TimeoutExpired:
                os.killpg(self.process.pid, signal.SIGKILL)
                self.process.wait()
        self.log.close()
        if not self.kept:
            shutil.rmtree(self.profile, ignore_errors=True)
