"""Firefox, without a window: logins put in through its own scripts, its CSV export and its profile."""
import contextlib
import json
import socket
import subprocess

from real.comparison import Export
from real.running import Unavailable, awaited, started, surroundings
from real.values import with_passwords

NAME = "Firefox"
PACKAGES = ("firefox-esr",)
PROGRAMS = ("firefox-esr",)

CREATED, USED, CHANGED = 1_577_934_245_001, 1_641_092_645_002, 1_609_556_645_999  # milliseconds
PUT = """
const login = Cc["@mozilla.org/login-manager/loginInfo;1"].createInstance(Ci.nsILoginInfo);
login.init(given.url, given.action, given.realm, given.username, given.password, ...given.fields);
Object.assign(login.QueryInterface(Ci.nsILoginMetaInfo), given.times);
await Services.logins.addLoginAsync(login);
"""
EXPORT = """
await ChromeUtils.importESModule("resource://gre/modules/LoginExport.sys.mjs").LoginExport.exportAsCSV(given);
"""
DECRYPT = """
const opener = Cc["@mozilla.org/login-manager/crypto/SDR;1"].getService(Ci.nsILoginManagerCrypto);
return given.map(text => opener.decrypt(text));
"""


class Browser:
    """A running browser, by the protocol of Marionette: JSON with its length and a colon before it."""

    def __init__(self, port):
        self.connection = socket.create_connection(("127.0.0.1", port), timeout=120)
        self.answers = self.connection.makefile("rb")
        self.answer()  # the greeting
        self.command("WebDriver:NewSession")
        self.command("Marionette:SetContext", value="chrome")

    def answer(self):
        length = b""
        while (digit := self.answers.read(1)) != b":":
            if not digit:
                raise Unavailable("Firefox has ended")
            length += digit
        return json.loads(self.answers.read(int(length)))

    def command(self, name, **words):
        message = json.dumps([0, 1, name, words]).encode()
        self.connection.sendall(b"%d:%s" % (len(message), message))
        _, _, error, result = self.answer()
        if error:
            raise Unavailable(f"{name}: {error['message']}")
        return result

    def run(self, script, given):
        """What an asynchronous script of the browser's own returns."""
        lines = (f"const [given, done] = arguments; (async () => {{{script}}})()"
                 ".then(value => done([value, null]), error => done([null, `${error}`]))")
        value, error = self.command("WebDriver:ExecuteAsyncScript", script=lines, args=[given], sandbox="system",
                                    newSandbox=True)["value"]
        if error:
            raise Unavailable(error)
        return value


def version():
    ran = subprocess.run(["firefox-esr", "--version"], check=True, text=True, stdout=subprocess.PIPE)
    return ran.stdout.strip().removeprefix("Mozilla Firefox ")


@contextlib.contextmanager
def browser_of(profile):
    profile.mkdir()
    (profile / "user.js").write_text('user_pref("marionette.port", 0);\nuser_pref("app.update.enabled", false);\n')
    port = profile / "MarionetteActivePort"
    command = ["firefox-esr", "--headless", "--marionette", "--remote-allow-system-access", "--no-remote",
               "--profile", profile]
    with started(command, env=surroundings(profile.parent), stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL):
        yield Browser(int(awaited("Marionette", lambda: port.exists() and port.read_text().strip())))


def exports(folder):
    profile = folder / "real.profile"
    with browser_of(profile) as browser:
        rows, logins = {}, {}
        for entry in with_passwords():
            # A login belongs to a form or to a realm of HTTP.
            site = entry.url.removesuffix(entry.rest)
            realm = entry.title if entry.number % 3 == 0 and not set(entry.title) & set("\r\n") else None
            action = None if realm else site
            browser.run(PUT, {
                "url": site, "action": action, "realm": realm, "username": entry.username, "password": entry.password,
                "fields": ["name", "pass"] if action else ["", ""], "times": {
                    "timeCreated": CREATED, "timeLastUsed": USED, "timePasswordChanged": CHANGED, "timesUsed": 7}})
            record = {"service": None, "url": site, "username": entry.username, "password": entry.password,
                      "note": None, "pwdChange": CHANGED // 1000}
            times = {"createdAt timeCreated": [str(CREATED)], "lastUsedAt timeLastUsed": [str(USED)]}
            where = {"other httpRealm": [realm] if realm else None}
            rows[entry.number] = record | {"extras": times | where | {
                "other formActionOrigin": [action] if action else None}}
            logins[entry.number] = record | {"extras": times | where | {
                "other formSubmitURL": [action] if action else None, "other timesUsed": ["7"],
                "other usernameField": ["name"] if action else None,
                "other passwordField": ["pass"] if action else None}}
        # The browser keeps its own account as a login, which is none of the person's.
        browser.run(PUT, {"url": "chrome://FirefoxAccounts", "action": None, "realm": "Firefox Accounts credentials",
                             "username": "ann", "password": "{}", "fields": ["", ""], "times": {}})
        table = folder / "passwords.csv"
        browser.run(EXPORT, str(table))
        yield Export("firefox-csv", table, rows, {"browserAccount": 1})

        awaited("logins.json", lambda: holds(profile / "logins.json", len(logins) + 1))

        def opened(record):
            record["username"], record["password"] = browser.run(
                DECRYPT, [record["username"], record["password"]])

        yield Export("firefox-profile", profile, logins, {"browserAccount": 1}, opened=opened, findings={
            f"stillEncrypted {field}": len(logins) for field in ("encryptedUsername", "encryptedPassword")})


def holds(path, count):
    return path.exists() and len(json.loads(path.read_text(encoding="utf-8"))["logins"]) == count
