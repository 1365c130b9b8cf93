"""Products as they are installed: what is put in through their own doors, and whether it arrives.

`values` holds what is put in, `comparison` reads a product's file with the host tool and compares,
`running` starts a product. Beside them there is one module for each product.
"""
