"""How the tools here build what they run."""
import os
import subprocess
import sys

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))


def build(preset, packages, targets, *options):
    """Installs what is missing of those sets of packages, and builds. Ends the process where that fails."""
    subprocess.run([f"{TOP}/tools/install-packages", *packages], check=True)
    print(f"Building (preset {preset})", file=sys.stderr)
    for command in (["cmake", "--preset", preset, *options], ["cmake", "--build", "--preset", preset, "--target", *targets]):
        done = subprocess.run(command, cwd=TOP, capture_output=True, text=True)
        if done.returncode:
            sys.exit(done.stdout[-4000:] + done.stderr + "\nThe build failed.")
