"""Builds the programs that the tools run."""
import os
import subprocess
import sys

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def build(preset, packages, targets, *options):
    """Installs the missing packages of the sets, and builds the targets. Exits the process on failure."""
    subprocess.run([f"{TOP}/tools/install-packages", *packages], check=True)
    print(f"Building (preset {preset})", file=sys.stderr)
    for command in ([f"{TOP}/tools/configure", preset, *options], ["cmake", "--build", "--preset", preset, "--target", *targets]):
        done = subprocess.run(command, cwd=TOP, capture_output=True, text=True)
        if done.returncode:
            sys.exit(done.stdout[-4000:] + done.stderr + "\nthe build failed")
