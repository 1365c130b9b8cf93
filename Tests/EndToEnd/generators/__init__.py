"""Random and hostile export files, one generator for each source.

A generator is made from a seed and gives the bytes of one file after another with file()."""
