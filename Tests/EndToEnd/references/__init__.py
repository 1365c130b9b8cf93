"""Slow and literal references for the import of each source, independent of the library."""
