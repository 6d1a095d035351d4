"""Many files converted in one invocation of the real program: what is told, what is skipped, what is left behind.

    batch.py CORVANE
"""
import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
MUSIC = os.path.join(HERE, "..", "data", "midi")
DOCUMENT = os.path.join(HERE, "..", "..", "docs", "batch.md")
CORVANE = ""


def limit_files(most_bytes):
    """Nobody writes a file of more; what it tells on a pipe does not count."""
    def apply():
        resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        resource.setrlimit(resource.RLIMIT_FSIZE, (most_bytes, most_bytes))
    return apply


def ignore_children():
    signal.signal(signal.SIGCHLD, signal.SIG_IGN)


class Conversion(unittest.TestCase):
    """A folder of its own, with music in it."""

    def setUp(self):
        self.home = tempfile.mkdtemp(prefix="corvane-batch-")
        self.addCleanup(shutil.rmtree, self.home)
        self.out = self.path("out")
        self.env = {k: v for k, v in os.environ.items() if not k.startswith(("XDG_", "CORVANE_"))}
        self.env.update(HOME=self.home, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="offscreen",
                        PATH=os.path.dirname(CORVANE) + ":" + os.environ["PATH"])
        self.env.pop("SLURM_ARRAY_TASK_ID", None)

    def path(self, *names):
        return os.path.join(self.home, *names)

    def put(self, name, of="part-test_anacrusis.mid"):
        path = self.path(name)
        os.makedirs(os.path.dirname(path), exist_ok=True)
        shutil.copyfile(os.path.join(MUSIC, of), path)
        return path

    def put_format_0(self, name):
        path = self.put(name)
        with open(path, "r+b") as file:
            file.seek(9)
            file.write(b"\0")
        return path

    def convert(self, *files, to="mid", jobs=2, out=None, **how):
        return subprocess.run([CORVANE, "convert", "--out-dir", out or self.out, "--to", to, "--jobs", str(jobs), *files],
                              env=self.env, capture_output=True, text=True, timeout=60, check=False, **how)

    def expect(self, run, converted, skipped, refused):
        """The last line counts, and the exit code says whether all went well."""
        self.assertEqual(run.stdout.splitlines()[-1], f"{converted} converted, {skipped} skipped, {refused} refused",
                         run.stderr)
        self.assertEqual(run.returncode, 1 if refused else 0)
        self.assertEqual(len(run.stderr.splitlines()), refused, run.stderr)


class Batch(Conversion):
    """One invocation."""

    def test_goes_on_after_refusals_and_does_only_what_is_left(self):
        good = [self.put(f"{name}.mid") for name in ("a", "b", "c d")]
        bad = [self.put_format_0("format0.mid"), self.path("missing.mid"), self.put("music.txt")]
        files = [good[0], *bad, *good[1:]]
        for jobs in (0, 1, 5):
            with self.subTest(jobs=jobs):
                shutil.rmtree(self.out, ignore_errors=True)
                run = self.convert(*files, jobs=jobs)
                self.expect(run, 3, 0, 3)
                for path in bad:
                    self.assertIn(path, run.stderr)
                self.assertEqual(sorted(os.listdir(self.out)), ["a.mid", "b.mid", "c d.mid"])
        self.expect(self.convert(*files), 0, 3, 3)
        os.utime(good[1], (time.time() + 10,) * 2)
        os.remove(os.path.join(self.out, "c d.mid"))
        self.expect(self.convert(*files), 2, 1, 3)

    def test_two_files_never_become_one(self):
        first, second = self.put("one/song.mid"), self.put("two/song.mid", "m21-test02.mid")
        run = self.convert(first, second)
        self.expect(run, 1, 0, 1)
        self.assertIn(second, run.stderr)
        size = os.path.getsize(os.path.join(self.out, "song.mid"))
        self.assertLess(size, 400, "the first of them is the short one")

    def test_a_folder_that_cannot_be_written_is_told(self):
        song = self.put("song.mid")
        run = self.convert(song, out=song)
        self.assertEqual((run.returncode, run.stdout), (1, ""))
        self.assertIn(song, run.stderr)
        self.expect(self.convert(song, out="/proc"), 0, 0, 1)
        os.makedirs(os.path.join(self.out, "song.mid"))
        self.expect(self.convert(song), 0, 0, 1)

    def test_words_that_make_no_sense_are_misuse(self):
        song = self.put("song.mid")
        for words in (["--to", "xyz"], ["--to", "../a"], []):
            run = subprocess.run([CORVANE, "convert", "--out-dir", self.out, *words, song], env=self.env,
                                 capture_output=True, text=True, check=False)
            self.assertEqual((run.returncode, len(run.stderr.splitlines())), (2, 1), run.stderr)
        self.assertFalse(os.path.exists(self.out))

    def test_a_file_given_as_its_own_output_stays(self):
        song = self.put("song.mid")
        self.expect(self.convert(song, out=self.home), 0, 1, 0)
        with open(song, "rb") as now, open(os.path.join(MUSIC, "part-test_anacrusis.mid"), "rb") as before:
            self.assertEqual(now.read(), before.read())

    def test_what_is_half_written_is_never_taken_for_finished(self):
        song = self.put("song.mid")
        for to in ("cvm", "mid", "pdf", "svg", "png", "wav"):
            with self.subTest(to=to):
                # Past the limit a process is killed in the middle of its writing.
                run = self.convert(song, to=to, preexec_fn=limit_files(100))
                self.expect(run, 0, 0, 1)
                self.assertIn(f"ended by signal {signal.SIGXFSZ.value}", run.stderr)
                self.assertFalse(os.path.exists(os.path.join(self.out, "song." + to)))
                if to != "wav":
                    self.expect(self.convert(song, to=to), 1, 0, 0)

    def test_a_full_disk_is_told_and_leaves_nothing(self):
        song = self.put("song.mid")
        for to in ("cvm", "mid", "pdf", "png", "wav"):
            with self.subTest(to=to):
                # Where nobody minds the signal the write itself fails.
                self.expect(self.convert(song, to=to, preexec_fn=limit_files(100), restore_signals=False), 0, 0, 1)
                self.assertEqual(os.listdir(self.out), [])

    def test_a_run_cut_short_goes_on_where_it_stopped(self):
        files = [self.put(f"{i}.mid", "m21-test02.mid") for i in range(8)]
        with subprocess.Popen([CORVANE, "convert", "--out-dir", self.out, "--to", "mid", "--jobs", "1", *files],
                              env=self.env, stdout=subprocess.DEVNULL, start_new_session=True) as run:
            while not os.path.exists(os.path.join(self.out, "0.mid")) and run.poll() is None:
                time.sleep(0.002)
            os.killpg(run.pid, signal.SIGKILL)
        done = sum(name.endswith(".mid") for name in os.listdir(self.out))
        self.assertGreater(done, 0)
        self.expect(self.convert(*files), len(files) - done, done, 0)

    def test_a_parent_that_ignores_its_children_loses_no_count(self):
        files = [self.put("good.mid"), self.put_format_0("format0.mid")]
        self.expect(self.convert(*files, preexec_fn=ignore_children), 1, 0, 1)


def documented(heading):
    """The lines to type that docs/batch.md shows under a heading."""
    with open(DOCUMENT, encoding="utf-8") as file:
        section = file.read().split(f"## {heading}\n")[1].split("\n## ")[0]
    return "\n".join(line[4:] for line in re.search(r"(?:^    .*\n)+", section, re.M)[0].splitlines())


class Dealing(Conversion):
    """Whole corpora, as the documentation tells."""

    def setUp(self):
        super().setUp()
        self.names = [f"corpus/{i % 3}/song {i}'s.mid" for i in range(7)]
        for name in self.names:
            self.put(name)

    def outputs(self):
        return sorted(os.listdir(self.out))

    def expected(self):
        return sorted(os.path.basename(name)[:-4] + ".cvm" for name in self.names)

    def type(self, text, **env):
        return subprocess.run(["bash", "-c", text], env={**self.env, **env}, cwd=self.home, capture_output=True, text=True,
                              timeout=60, check=False)

    @unittest.skipUnless(shutil.which("parallel"), "GNU parallel is not installed")
    def test_gnu_parallel_deals_out_every_file(self):
        line = documented("With GNU parallel").replace("-n 50", "-n 3")
        run = self.type(line)
        self.assertEqual(run.returncode, 0, run.stderr)
        self.assertEqual(self.outputs(), self.expected())
        self.assertEqual(run.stdout.count("refused"), 3, "three groups")
        self.put_format_0("corpus/bad.mid")
        self.assertEqual(self.type(line).returncode, 1, "one group holds a refused file")

    def test_the_tasks_of_a_slurm_array_take_every_file_once(self):
        script = documented("As a Slurm array").replace("% 100", "% 4")
        self.assertTrue(script.startswith("#!"))
        counts = [0, 0, 0]
        for task in range(4):
            run = self.type(script, SLURM_ARRAY_TASK_ID=str(task), SLURM_CPUS_PER_TASK="2")
            self.assertEqual(run.returncode, 0, run.stderr)
            numbers = re.findall(r"\d+", run.stdout)
            counts = [a + int(b) for a, b in zip(counts, numbers)]
        self.assertEqual(counts, [len(self.names), 0, 0])
        self.assertEqual(self.outputs(), self.expected())


if __name__ == "__main__":
    CORVANE = os.path.abspath(sys.argv.pop(1))
    unittest.main(verbosity=2)
