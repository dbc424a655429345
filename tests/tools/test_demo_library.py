"""Makes a small demo library and looks at what came out."""

import array
import pathlib
import subprocess
import sys
import tempfile
import unittest

TOOL = pathlib.Path(__file__).resolve().parents[2] / "tools" / "make_demo_library.py"
TRACKS = 6


def run(*arguments):
    """The tool's run, its output as text."""
    return subprocess.run([sys.executable, TOOL, *arguments], capture_output=True, text=True)


def samples(path):
    """The decoded audio of a file."""
    command = ["ffmpeg", "-v", "error", "-i", path, "-f", "s16le", "-ac", "1", "pipe:1"]
    return array.array("h", subprocess.run(command, stdout=subprocess.PIPE, check=True).stdout)


class DemoLibrary(unittest.TestCase):
    """A library of the first few tracks, made once."""

    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory()
        cls.addClassCleanup(temporary.cleanup)
        cls.folder = pathlib.Path(temporary.name) / "Müsic & more"
        cls.result = run(cls.folder, "--tracks", str(TRACKS))
        cls.files = sorted(p for p in cls.folder.rglob("*") if p.suffix in (".mp3", ".ogg", ".flac"))

    def test_says_what_it_made(self):
        self.assertEqual((self.result.returncode, self.result.stderr), (0, ""))
        self.assertIn(f"{TRACKS} tracks, {TRACKS} of them new", self.result.stdout)
        self.assertEqual(len(self.files), TRACKS)

    def test_sound_is_loud_enough_and_never_clips(self):
        tunes = [samples(path) for path in self.files]
        for path, tune in zip(self.files, tunes):
            with self.subTest(path.name):
                power = sum(value * value for value in tune[::7]) / len(tune[::7])
                self.assertLess(max(map(abs, tune)), 29204)  # -1 dBFS
                self.assertGreater(power ** 0.5, 2000)
        self.assertEqual(len({tune[100000:100100].tobytes() for tune in tunes}), TRACKS)

    def test_tags_are_of_the_versions_named(self):
        contents = [path.read_bytes() for path in self.files if path.suffix == ".mp3"]
        versions = {data[3] for data in contents if data[:3] == b"ID3"}
        self.assertEqual(versions, {3, 4})
        self.assertTrue(any(data[:3] != b"ID3" and data[-128:-125] == b"TAG" for data in contents))
        self.assertTrue(any(b"APIC" in data[:500] for data in contents))

    def test_playlists_name_files_that_are_there(self):
        lists = list((self.folder / "Playlists").glob("*.m3u"))
        self.assertGreaterEqual(len(lists), 4)
        for playlist in lists:
            lines = [s for s in playlist.read_text("utf-8").splitlines() if s[:1] != "#"]
            self.assertTrue(all(pathlib.Path(s).is_file() and s[0] == "/" for s in lines))

    def test_a_second_run_keeps_what_is_there(self):
        before = {path: path.stat().st_mtime_ns for path in self.folder.rglob("*")}
        self.assertIn("all there", run(self.folder, "--tracks", str(TRACKS)).stdout)
        self.assertEqual({p: p.stat().st_mtime_ns for p in self.folder.rglob("*")}, before)

    def test_a_folder_that_cannot_be_made_is_an_error(self):
        result = run("/dev/null/music", "--tracks", "1")
        self.assertEqual(result.returncode, 1)
        self.assertIn("make_demo_library: ", result.stderr)


if __name__ == "__main__":
    unittest.main()
