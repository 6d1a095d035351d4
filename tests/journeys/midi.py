"""A MIDI system of the test's own, and another program that writes down what it receives."""
import os
import re
import shutil

from desk import wait_for

PERIOD = 512


class Monitor:
    """A server with its dummy driver and a receiver, which the program finds as output 0."""

    def __init__(self, desk):
        self.desk = desk
        self.path = desk.path("midi")
        desk.env["JACK_DEFAULT_SERVER"] = f"corvane-journey-{os.getpid()}"
        # Waiting for its clients in each period, it loses nothing on a machine that has other work.
        desk.spawn(["jackd", "--no-realtime", "--sync", "--timeout", "2000", "--name",
                    desk.env["JACK_DEFAULT_SERVER"], "-d", "dummy", "-r", "48000", "-p", str(PERIOD)])
        wait_for(lambda: "system:" in desk.run("jack_lsp"), "the MIDI server")
        desk.spawn(["stdbuf", "-oL", "jack_midi_dump", "-a", "monitor"], into=self.path)
        wait_for(lambda: "monitor" in desk.run("jack_lsp"), "the receiver")

    @staticmethod
    def is_there():
        return all(shutil.which(program) for program in ("jackd", "jack_midi_dump", "jack_lsp"))

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
