"""A repository and the user's clone of it, by the real git."""

import os
import stat


class Clone:
    """A clone NAME in the folder, and beside the folder its origin, which has these branches
    beside "main" that the clone has fetched none of."""

    def __init__(self, processes, folder, name, branches=()):
        self._processes = processes
        self.path = os.path.join(folder, name)
        self.origin = f"{folder}.origins/{name}.git"
        self.git("init", "--quiet", "--bare", "--initial-branch=main", self.origin, at="/")
        self.git("clone", "--quiet", self.origin, self.path, at="/")
        self.git("commit", "--quiet", "--allow-empty", "--message=Begin")
        self.git("push", "--quiet", "origin", "HEAD:main")
        for branch in branches:
            self.add_to_origin(branch)

    def add_to_origin(self, branch):
        self.git("branch", branch, "main", at=self.origin)

    def git(self, *arguments, at=None):
        """Runs git in the clone, or elsewhere; returns what it prints."""
        author = ("-c", "user.name=Robin", "-c", "user.email=robin@example.org")
        done = self._processes.run("git", "-C", at or self.path, *author, *arguments)
        if done.returncode != 0:
            raise AssertionError(f"git {' '.join(arguments)}: {done.stderr}")
        return done.stdout.strip()

    def worktree(self, branch_folder):
        """Where the worktree of a branch belongs."""
        folder, name = os.path.split(self.path)
        return os.path.join(folder, ".tarnwick-worktrees", name, branch_folder)

    def hold_fetches(self):
        """From now on a fetch waits until the function that this returns is called."""
        gate = f"{self.origin}.gate"
        program = f"{self.origin}.upload-pack"
        with open(program, "w", encoding="utf-8") as script:
            script.write(
                f'#!/bin/sh\nuntil [ -e "{gate}" ]; do sleep 0.02; done\n'
                'exec git-upload-pack "$@"\n'
            )
        os.chmod(program, stat.S_IRWXU)
        self.git("config", "remote.origin.uploadpack", program)

        def let_through():
            with open(gate, "w", encoding="utf-8"):
                pass

        return let_through
