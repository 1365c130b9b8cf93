"""How paths are shared out among calls of the tool."""

PER_CALL = 200


def batches(random_, expected):
    """Calls of mixed sizes; a part of the successes goes into calls of their own, so that status 0 occurs."""
    good = [path for path in expected if "error" not in expected[path]]
    random_.shuffle(good)
    clean = set(good[:len(good) // 2])
    for pool in ([p for p in expected if p in clean], [p for p in expected if p not in clean]):
        while pool:
            size = random_.choice([1, 2, 5, 50, PER_CALL, PER_CALL, PER_CALL])
            yield pool[:size]
            pool = pool[size:]
