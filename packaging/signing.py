"""Signs files with an Ed25519 key that openssl keeps in a PEM file."""

import base64
import os
import stat
import subprocess
import tempfile

# What stands before the 32 bytes of an Ed25519 public key in DER.
PUBLIC_KEY_HEADER = bytes.fromhex("302a300506032b6570032100")


class SigningError(Exception):
    """Why nothing was signed, as one English sentence."""


def checked_key(path, tree):
    """The path of a key that lies outside of the tree and that nobody but its owner can read."""
    path = os.path.realpath(path)
    if not os.path.isfile(path):
        raise SigningError(f"The key {path} does not exist.")
    if os.path.commonpath((path, os.path.realpath(tree))) == os.path.realpath(tree):
        raise SigningError(f"The key {path} is inside the source tree, where it might be committed.")
    if os.stat(path).st_mode & (stat.S_IRWXG | stat.S_IRWXO):
        raise SigningError(f"Others can read the key {path}; run \"chmod 600\" on it.")
    public_key(path)
    return path


def public_key(path):
    """The public half, 32 bytes in Base64, as the program is built with it."""
    encoded = openssl("pkey", "-in", path, "-pubout", "-outform", "DER")
    if not encoded.startswith(PUBLIC_KEY_HEADER) or len(encoded) != len(PUBLIC_KEY_HEADER) + 32:
        raise SigningError(f"{path} is not an Ed25519 key.")
    return base64.b64encode(encoded[len(PUBLIC_KEY_HEADER) :]).decode()


def signature(key, path):
    """The signature of a file's bytes, 64 bytes in Base64."""
    with tempfile.NamedTemporaryFile() as output:
        openssl("pkeyutl", "-sign", "-rawin", "-inkey", key, "-in", path, "-out", output.name)
        signed = output.read()
    if len(signed) != 64:
        raise SigningError(f"openssl did not create an Ed25519 signature of {path}.")
    return base64.b64encode(signed).decode()


def openssl(*arguments):
    done = subprocess.run(
        ("openssl", *arguments), stdin=subprocess.DEVNULL, capture_output=True, check=False
    )
    if done.returncode != 0:
        reason = done.stderr.decode(errors="replace").strip().split("\n")[0]
        raise SigningError(f"openssl {arguments[0]} failed: {reason}.")
    return done.stdout
