"""Random choices that all generators share."""
import random


class Draw:
    def __init__(self, seed):
        self.r = random.Random(seed)

    def chance(self, p):
        return self.r.random() < p

    def pick(self, values):
        return self.r.choice(values)

    def weighted(self, pairs):
        """One of the values of (value, weight) pairs."""
        return self.r.choices([value for value, _ in pairs], [weight for _, weight in pairs])[0]
