"""Programs of the system: installed, started and ended."""
import contextlib
import os
import shutil
import subprocess
import time


class Unavailable(Exception):
    """The product, or one of its doors, cannot be had here."""


def install(packages, programs):
    """Installs Debian packages unless their programs are there."""
    if all(map(shutil.which, programs)):
        return
    become_root = [] if os.geteuid() == 0 else ["sudo", "--non-interactive"]
    install_them = ["apt-get", "install", "--yes", "--quiet", "--quiet", "--no-install-recommends", *packages]
    try:
        subprocess.run([*become_root, "apt-get", "update", "--quiet", "--quiet"], check=True)
        subprocess.run([*become_root, "env", "DEBIAN_FRONTEND=noninteractive", *install_them], check=True)
    except (OSError, subprocess.CalledProcessError) as error:
        raise Unavailable(f"{' '.join(packages)} cannot be installed") from error


def surroundings(home, **more):
    """The environment of a product: a home of its own, and English."""
    return {**os.environ, "HOME": str(home), "LC_ALL": "C.UTF-8", **more}


@contextlib.contextmanager
def started(command, **how):
    """A process, which ends with the block."""
    try:
        process = subprocess.Popen(command, **how)
    except OSError as error:
        raise Unavailable(f"{command[0]} cannot be started") from error
    try:
        yield process
    finally:
        if process.poll() is None:
            process.terminate()
            try:
                process.wait(20)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


def awaited(what, look, seconds=60):
    """What `look` finds, once that is something."""
    end = time.monotonic() + seconds
    while not (found := look()):
        if time.monotonic() > end:
            raise Unavailable(f"{what} did not come within {seconds} s")
        time.sleep(0.1)
    return found
