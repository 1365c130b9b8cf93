"""The protocol of Chromium's developer tools: JSON with a zero byte behind it, on two pipes."""
import contextlib
import json
import os
import select

from real.running import Unavailable, started

SECONDS = 120  # for an answer
# The browser expects the pipes as its file descriptors 3 and 4.
WITH_PIPES = ["bash", "-c", 'exec 3<&"$1" 4>&"$2"; shift 2; exec "$@"', "bash"]


class Browser:
    """A running browser, and one of its pages."""

    def __init__(self, questions, answers):
        self.questions, self.answers = questions, answers
        self.number, self.rest, self.page = 0, b"", {}

    def open(self, address):
        target = self.command("Target.createTarget", url=address)["targetId"]
        self.page = {"sessionId": self.command("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]}

    def run(self, script):
        """What an expression in the page is, once that is known."""
        answer = self.command("Runtime.evaluate", expression=script, awaitPromise=True, returnByValue=True,
                              userGesture=True)
        if "exceptionDetails" in answer:
            raise Unavailable(answer["exceptionDetails"].get("exception", {}).get("description", script))
        return answer["result"].get("value")

    def command(self, method, **words):
        self.number += 1
        message = {"id": self.number, "method": method, "params": words, **self.page}
        os.write(self.questions, json.dumps(message).encode() + b"\0")
        while (answer := self.message()).get("id") != self.number:
            pass  # an event
        if "error" in answer:
            raise Unavailable(f"{method}: {answer['error']['message']}")
        return answer["result"]

    def message(self):
        while b"\0" not in self.rest:
            ready, _, _ = select.select([self.answers], [], [], SECONDS)
            more = os.read(self.answers, 1 << 16) if ready else b""
            if not more:
                raise Unavailable("the browser does not answer")
            self.rest += more
        message, self.rest = self.rest.split(b"\0", 1)
        return json.loads(message)


@contextlib.contextmanager
def browser_of(command, **how):
    """The browser that a command starts, until the block ends."""
    in_browser, questions = os.pipe()
    answers, out_of_browser = os.pipe()
    try:
        pipes = (in_browser, out_of_browser)
        with started([*WITH_PIPES, *map(str, pipes), *command, "--remote-debugging-pipe"], pass_fds=pipes, **how):
            yield Browser(questions, answers)
    finally:
        for pipe in (in_browser, questions, answers, out_of_browser):
            os.close(pipe)
