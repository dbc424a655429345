"""alone.py PROGRAM ARGUMENTS...: runs a test program apart from whoever uses the machine, and ends what it leaves.

Home, configuration, runtime and temporary folders are its own, and nothing leads to the user's display, sound server
or session. All that it starts bears a mark in its environment: what is left of that after the program's end fails the
test, and is ended, also when the test is killed.
"""

import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time

MARK = "VK_ALONE"
# What leads to the user's session. How Qt draws is up to the test.
FOREIGN = ("XDG_", "PULSE_", "PIPEWIRE_", "ALSA_", "DBUS_", "VLC_", "WAYLAND_", "DISPLAY", "SESSION_MANAGER", "LIRC_")
LEAVING = 10  # seconds that programs have for their own end


class Alone:
    """An environment (`env`) on a temporary folder (`folder`) until `end`."""

    def __init__(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velkorandum-test-"))
        self.env = {name: value for name, value in os.environ.items() if not name.startswith(FOREIGN)}
        self.env[MARK] = str(self.folder)
        for name, place in (("HOME", "home"), ("XDG_CONFIG_HOME", "config"), ("XDG_RUNTIME_DIR", "run"),
                            ("XDG_CACHE_HOME", "cache"), ("XDG_DATA_HOME", "data"), ("TMPDIR", "tmp")):
            (self.folder / place).mkdir(mode=0o700)
            self.env[name] = str(self.folder / place)
        # The machine's own is asked to turn it off.
        self.env["DBUS_SYSTEM_BUS_ADDRESS"] = f"unix:path={self.folder}/system_bus"
        # The sound server's library would start a server.
        (self.folder / "config" / "pulse").mkdir()
        (self.folder / "config" / "pulse" / "client.conf").write_text("autospawn = no\n")
        self._watch()

    def keep_reports(self):
        """What sanitizers tell goes to files from now on."""
        options = self.env.get("ASAN_OPTIONS")
        self.env["ASAN_OPTIONS"] = (options + ":" if options else "") + f"log_path={self.folder}/sanitizer"

    def reports(self):
        """Of all programs so far."""
        return "".join(path.read_text(errors="replace") for path in sorted(self.folder.glob("sanitizer.*")))

    def _watch(self):
        """A process that outlives this one, to end what a killed test leaves."""
        reading, self._alive = os.pipe()
        self._watcher = os.fork()
        if self._watcher:
            os.close(reading)
            return
        os.setsid()
        quiet = os.open(os.devnull, os.O_RDWR)
        for stream in range(3):
            os.dup2(quiet, stream)
        os.close(self._alive)
        os.read(reading, 1)  # nothing, at the other side's end
        self._clear()
        os._exit(0)

    def _clear(self):
        while self.processes():
            for number in self.processes():
                try:
                    os.kill(number, signal.SIGKILL)
                except ProcessLookupError:
                    pass
            time.sleep(0.01)
        shutil.rmtree(self.folder, ignore_errors=True)

    def processes(self, program=""):
        """The numbers of the running processes that were started here, of that program, of that folder or of any."""
        mark = f"{MARK}={self.folder}".encode()
        found = []
        for entry in pathlib.Path("/proc").glob("[0-9]*"):
            try:
                marked = mark in (entry / "environ").read_bytes().split(b"\0")
                if marked and os.readlink(entry / "exe").startswith(str(program)):
                    found.append(int(entry.name))
            except OSError:
                pass  # it has gone, or is somebody else's
        return found

    def left(self):
        """What still runs after the time that programs have for their end, in words."""
        end = time.monotonic() + LEAVING
        while self.processes() and time.monotonic() < end:
            time.sleep(0.01)
        return [pathlib.Path(f"/proc/{number}/cmdline").read_bytes().replace(b"\0", b" ").decode(errors="replace")
                for number in self.processes()]

    def end(self):
        os.close(self._alive)
        os.waitpid(self._watcher, 0)


def main(command):
    alone = Alone()
    try:
        status = subprocess.run(command, env=alone.env, check=False).returncode
        left = alone.left()
        for line in left:
            print("left running:", line)
        return 1 if status == 0 and left else abs(status)
    finally:
        alone.end()


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
