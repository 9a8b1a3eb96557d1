"""A run of the server that is held at its questions, as long as something happens outside."""

import os
import subprocess

# What the server asks, by the state that the day is in then; and the answers.
LISTED, READ, LOGGED_ON, WRITTEN = "listed", "read", "read by a logon", "written"
QUESTIONS = {LISTED: ("Hvilke skal overføres (numre, a for alle, tomt for ingen)? ", "a"),
             READ: ("Skal den overskrives? [j/N] ", "n"),
             LOGGED_ON: ("Passord for 'manager'? ", "landhandel"),
             WRITTEN: ("merkes som overført? [J/n] ", "j")}


class Conversation:
    """Answers each question; before the first answer in a state its happening takes place."""

    def __init__(self, shop, happenings, environment=None):
        self.shop = shop
        self.happenings = dict(happenings)
        self.process = subprocess.Popen(
            [shop.server, "--folder", shop.folder, "--journal", shop.path("journal")],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
            env={**os.environ, **(environment or {})})
        self.heard = b""
        self.answered = 0

    def question(self):
        """The state of the question that is open now, or nothing at the end of the run."""
        while chunk := os.read(self.process.stdout.fileno(), 65536):
            self.heard += chunk
            for state, (text, _) in QUESTIONS.items():
                if self.heard[self.answered:].endswith(text.encode()):
                    return state
        return None

    def run(self):
        while state := self.question():
            self.answered = len(self.heard)
            happening = self.happenings.pop(state, None)
            if happening:
                happening()
            try:
                os.write(self.process.stdin.fileno(), QUESTIONS[state][1].encode() + b"\n")
            except BrokenPipeError:
                break  # it has ended meanwhile
        self.process.stdin.close()
        errors = self.process.stderr.read().decode()
        self.process.stdout.close()
        self.process.stderr.close()
        self.shop.bad_ends += self.process.wait() != 0
        return subprocess.CompletedProcess(self.process.args, self.process.returncode,
                                           self.heard.decode(), errors)
