"""What the scripts that watch the program from outside have in common."""
