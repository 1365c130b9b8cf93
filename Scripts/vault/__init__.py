"""The sample vault: what it holds, how each product writes it, and what an import makes of that.

`entries` holds the vault, `stores` lists the files. Between them there is one module for each product,
which says how the product writes the vault and, from its format's own rules and independently of the
library, which records arrive.
"""
