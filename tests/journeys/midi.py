"""A MIDI system of the test's own, and another program that writes down what it receives."""
import fcntl
import glob
import os
import re
import shutil
import tempfile

from desk import Failure, take, wait_for

PERIOD = 512


def free_name():
    """A server's name that no other journey uses now, and the lock that holds it. A server that is killed keeps one of
    the eight places that the library has for servers, until one of the same name comes."""
    for number in range(4):
        name = f"corvane-journey-{number}"
        lock = open(os.path.join(tempfile.gettempdir(), name + ".lock"), "w", encoding="utf-8")
        try:
            fcntl.flock(lock, fcntl.LOCK_EX | fcntl.LOCK_NB)
            return name, lock
        except BlockingIOError:
            lock.close()
    raise Failure("every name of a MIDI server is taken")


def forget_dead_servers():
    """Where no server lives, what dead ones have left takes up all their places."""
    for path in glob.glob("/proc/[0-9]*/comm"):
        try:
            with open(path, encoding="utf-8") as file:
                if file.read().strip() in ("jackd", "jackdbus"):
                    return
        except OSError:
            pass
    try:
        os.remove("/dev/shm/jack-shm-registry")
    except OSError:
        pass


class Monitor:
    """A server with its dummy driver and a receiver, which the program finds as output 0."""

    def __init__(self, desk):
        self.desk = desk
        self.path = desk.path("midi")
        desk.env["JACK_DEFAULT_SERVER"], self.lock = free_name()
        server = self._serve()
        wait_for(lambda: server.poll() is not None or self._runs(), "the MIDI server")
        if server.poll() is not None:
            forget_dead_servers()
            self._serve()
            wait_for(self._runs, "the MIDI server")
        desk.spawn(["stdbuf", "-oL", "jack_midi_dump", "-a", "monitor"], into=self.path)
        wait_for(lambda: "monitor" in desk.run("jack_lsp"), "the receiver")

    def _serve(self):
        # Waiting for its clients in each period, it loses nothing on a machine that has other work.
        return self.desk.spawn(["jackd", "--no-realtime", "--sync", "--timeout", "2000", "--name",
                                self.desk.env["JACK_DEFAULT_SERVER"], "-d", "dummy", "-r", "48000", "-p", str(PERIOD)])

    def _runs(self):
        return "system:" in self.desk.run("jack_lsp")

    @staticmethod
    def is_there():
        return all(shutil.which(program) for program in ("jackd", "jack_midi_dump", "jack_midiseq", "jack_lsp"))

    def messages(self):
        """(frame, status, first data, second data) of everything received so far."""
        with open(self.path, encoding="utf-8", errors="replace") as file:
            lines = [re.match(r"\s*(\d+):\s+((?:[0-9a-f]{2} ?)+)", line) for line in file]
        found = []
        for line in lines:
            if line:
                data = [int(byte, 16) for byte in line[2].split()]
                found.append((int(line[1]), *data, *[0] * (3 - len(data))))
        return found

    def starts(self, channel, since=0):
        """(frame, key) of the notes that began on a channel, from the message of that number on."""
        return [(frame, key) for frame, status, key, velocity in self.messages()[since:]
                if status == 0x90 + channel - 1 and velocity]

    def sounding(self):
        """Notes that nobody has ended."""
        on = set()
        for _, status, key, velocity in self.messages():
            if status & 0xF0 == 0x90 and velocity:
                on.add((status & 15, key))
            elif status & 0xF0 in (0x80, 0x90):
                on.discard((status & 15, key))
        return on


def take_with_midi(journey):
    """Takes a journey where a MIDI system can be started; elsewhere it is skipped."""
    if not Monitor.is_there():
        print("no MIDI system can be started here")
        return 77
    return take(journey)
