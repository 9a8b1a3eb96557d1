"""File systems of a test's own, in a namespace where it may mount: where the system has user
namespaces it needs no privilege for that."""

import contextlib
import os
import shutil
import subprocess
import sys
import tempfile

MOUNTING = "--mounting"  # what a test gives itself in the namespace
OWN_USERS = ("unshare", "--map-root-user", "--mount")
SYSTEMS_USERS = ("unshare", "--mount")  # the superuser's own, which may mount images


def mount(*arguments):
    subprocess.run(["mount", *arguments], check=True)


@contextlib.contextmanager
def mounted(folder, *arguments):
    mount(*arguments, folder)
    try:
        yield
    finally:
        subprocess.run(["umount", folder], check=True)


def refusal(*command):
    """Why a command that does nothing does not work here; nothing where it does."""
    try:
        run = subprocess.run(command, capture_output=True, text=True)
    except OSError as error:
        return str(error)
    return f"{' '.join(command)}: {run.stderr.strip()}" if run.returncode else ""


def run_with_mounts(*namespaces):
    """The test again, in the first of the namespaces that lets it mount; why there is none."""
    reasons = []
    for namespace in namespaces or (OWN_USERS, SYSTEMS_USERS):
        reason = refusal(*namespace, "mount", "-t", "tmpfs", "none", tempfile.gettempdir())
        if not reason:
            run = subprocess.run([*namespace, sys.executable, *sys.argv, MOUNTING])
            return sys.exit(run.returncode) if run.returncode else ""
        reasons.append(reason)
    return "; ".join(reasons)


def refusal_of_images():
    """Why no file can be mounted as a file system here; nothing where one can."""
    if os.geteuid() != 0 or not shutil.which("mkfs.ext4", path=tools()):
        return "an ext4 of its own: needs the superuser and mkfs.ext4"
    with tempfile.TemporaryDirectory() as folder:
        image, place = os.path.join(folder, "image"), os.path.join(folder, "place")
        os.mkdir(place)
        make_ext4(image, 1)
        reason = refusal("mount", "-o", "loop", image, place)
        if not reason:
            subprocess.run(["umount", place], check=True)
        return reason


def tools():
    return os.environ.get("PATH", "") + ":/usr/sbin:/sbin"


def make_ext4(image, mebibytes):
    """Small blocks, so that a folder is full after a few names."""
    with open(image, "wb") as file:
        file.truncate(mebibytes * 2 ** 20)
    subprocess.run([shutil.which("mkfs.ext4", path=tools()), "-q", "-F", "-b", "1024", "-N", "256",
                    "-m", "0", "-O", "^has_journal", image], check=True)


@contextlib.contextmanager
def ext4(folder, mebibytes=16):
    """An ext4 in a file beside the folder, mounted on it."""
    image = f"{folder}.image"
    make_ext4(image, mebibytes)
    try:
        with mounted(folder, "-o", "loop", image):
            yield
    finally:
        os.unlink(image)
