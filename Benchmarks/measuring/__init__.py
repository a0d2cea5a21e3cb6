"""Shared by the scripts that measure the program from outside."""
