"""A desktop of one's own: a screen, a session bus with accessibility, and a home folder."""

import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile

from gi.repository import Gio, GLib

import accessible
from application import APP_ID, Application
from waiting import until

HERE = pathlib.Path(__file__).resolve().parent
A11Y_SERVICE = pathlib.Path("/usr/share/dbus-1/services/org.a11y.Bus.service")
END_SECONDS = 30
# Permissions are to count for root as well.
AS_ANYBODY = (["setpriv", "--bounding-set=-dac_override,-dac_read_search"]
              if os.geteuid() == 0 else [])
PASSED_ON = ("PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS", "TSAN_OPTIONS")


class Desktop:
    """Made with the program to start and the service file that its package installs; to be closed.

    Nothing of the user's session is seen by the programs on it, nor seen of them.
    """

    def __init__(self, program, service, size=(800, 900)):
        self.program = pathlib.Path(program).resolve()
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="pellumar-desktop-"))
        self.home = self.folder / "home"
        self.log = self.folder / "log"
        self.processes = []
        self.environment = {name: os.environ[name] for name in PASSED_ON if name in os.environ}
        self._make_folders()
        try:
            self._start_screen(size)
            self._start_bus(service)
            self._switch_accessibility_on()
        except BaseException:
            self.close()
            raise

    def _make_folders(self):
        for name in ("home/Downloads", "home/Documents", "run", "services"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "run").chmod(0o700)
        self.environment |= {
            # There is no daemon that would keep the desktop's settings.
            "GSETTINGS_BACKEND": "memory",
            "HOME": str(self.home),
            "LC_ALL": "C.UTF-8",
            "XDG_CACHE_HOME": str(self.home / ".cache"),
            "XDG_CONFIG_HOME": str(self.home / ".config"),
            "XDG_DATA_HOME": str(self.home / ".local/share"),
            "XDG_RUNTIME_DIR": str(self.folder / "run")}

    def _spawn(self, *command, **options):
        with open(self.log, "ab") as log:
            process = subprocess.Popen(command, env=self.environment, stdin=subprocess.DEVNULL,
                                       cwd=self.home, **{"stdout": log, "stderr": log, **options})
        self.processes.append(process)
        return process

    def _start_screen(self, size):
        ours, theirs = os.pipe()
        self._spawn("Xvfb", "-displayfd", str(theirs), "-nolisten", "tcp",
                    "-screen", "0", f"{size[0]}x{size[1]}x24", pass_fds=[theirs])
        os.close(theirs)
        with open(ours, "rb") as pipe:
            number = pipe.readline().strip().decode()
        if not number:
            raise RuntimeError(f"Xvfb did not start: {self.log.read_text()}")
        self.environment["DISPLAY"] = ":" + number

    def _start_bus(self, service):
        services = self.folder / "services"
        shutil.copy(A11Y_SERVICE, services)
        ours = re.sub(r"(?m)^Exec=\S+", f"Exec={self.program}", pathlib.Path(service).read_text())
        (services / f"{APP_ID}.service").write_text(ours)
        text = (HERE / "bus.conf.in").read_text()
        text = text.replace("@FOLDER@", str(self.folder)).replace("@SERVICES@", str(services))
        (self.folder / "bus.conf").write_text(text)
        daemon = self._spawn("dbus-daemon", f"--config-file={self.folder / 'bus.conf'}", "--nofork",
                             "--print-address", stdout=subprocess.PIPE)
        with daemon.stdout as pipe:
            address = pipe.readline().strip().decode()
        self.environment["DBUS_SESSION_BUS_ADDRESS"] = address
        self.session = connect(address)

    def _switch_accessibility_on(self):
        bus = ("org.a11y.Bus", "/org/a11y/bus")
        self.call(*bus, accessible.PROPERTIES, "Set", "(ssv)", "org.a11y.Status", "IsEnabled",
                  GLib.Variant("b", True))
        self.tree_address, = self.call(*bus, "org.a11y.Bus", "GetAddress")
        self.accessibility = connect(self.tree_address)

    def listen_to_the_tree(self):
        """A file that gets all that is asked, answered and told about any tree from now on."""
        heard = self.folder / "heard"
        with open(heard, "wb") as file:
            self._spawn("dbus-monitor", "--address", self.tree_address, stdout=file)
        until(lambda: heard.stat().st_size > 0, "the listener to hear of itself")
        return heard

    def call(self, owner, path, interface, method, signature="()", *arguments):
        """Calls somebody on the session bus, who is started if need be; returns all values."""
        return self.session.call_sync(owner, path, interface, method,
                                      GLib.Variant(signature, arguments), None,
                                      Gio.DBusCallFlags.NONE, accessible.ANSWER_MS, None).unpack()

    def pid_of(self, name, bus=None):
        """Of the process that owns a name; none if nobody does."""
        try:
            return (bus or self.session).call_sync(
                "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                "GetConnectionUnixProcessID", GLib.Variant("(s)", (name,)), None,
                Gio.DBusCallFlags.NONE, accessible.ANSWER_MS, None).unpack()[0]
        except GLib.Error:
            return None

    def start(self, *arguments):
        """Starts the program and returns it when its window can be used."""
        self.launch(*arguments)
        return self.application()

    def launch(self, *arguments):
        """Starts the program and waits for nothing."""
        return self._spawn(*AS_ANYBODY, self.program, *arguments)

    def run(self, *arguments):
        """Runs the program to its end and returns its exit code: for what does not stay."""
        return self._spawn(self.program, *arguments).wait(timeout=END_SECONDS)

    def hand_over(self, *paths):
        """What a file manager does to open files: starts the application if it is not running."""
        uris = [pathlib.Path(path).resolve().as_uri() for path in paths]
        self.call(APP_ID, "/" + APP_ID.replace(".", "/"), "org.freedesktop.Application", "Open",
                  "(asa{sv})", uris, {})
        return self.application()

    def application(self):
        """The running application, when it has a window that is shown."""
        return until(self._find_application, lambda: f"the application\n{self.log_text()}")

    def _find_application(self):
        pid = self.pid_of(APP_ID)
        for root in accessible.applications(self.accessibility) if pid else []:
            if self.pid_of(root.owner, self.accessibility) == pid:
                found = Application(self, root, pid)
                return found if found.is_shown() else None
        return None

    def end(self, application):
        """Ends the application as the end of a session does, and waits until it has gone."""
        os.kill(application.pid, signal.SIGTERM)
        for process in self.processes:
            if process.pid == application.pid:
                process.wait(timeout=END_SECONDS)
        until(lambda: self.pid_of(APP_ID) is None, "the application's end")

    def xdotool(self, *arguments):
        done = subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, check=True,
                              stdout=subprocess.PIPE, timeout=END_SECONDS)
        return done.stdout.decode()

    def log_text(self):
        """What all programs on this desktop have printed."""
        return self.log.read_text(errors="replace")

    def close(self):
        """Ends all that was started, and removes the folder."""
        for process in reversed(self.processes):
            if process.poll() is None:
                process.terminate()
            process.wait(timeout=END_SECONDS)
        shutil.rmtree(self.folder, ignore_errors=True)


def connect(address):
    flags = (Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT
             | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION)
    return Gio.DBusConnection.new_for_address_sync(address, flags, None, None)
