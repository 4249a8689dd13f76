"""What the soak does in each round: the kinds of trouble, and how they are dealt and drawn.

Every kind comes once, in a random order, before any comes again. All of it follows from the seed.
"""

import random
from dataclasses import dataclass

BANK = 1012  # bytes, one transfer each
LIMITLESS = 1_000_000

# What a round may end with: the bank is right; the error was told in words; a person had to end the
# program, which goes on by design when the keyboard does not answer; a wrong byte came through, as
# the protocol has no means to tell it from a right one.
RIGHT, TOLD, ENDED, CARRIED = "right", "told", "ended", "carried"


@dataclass(frozen=True)
class Kind:
    """A kind of trouble, and in which of the ways it may end."""

    name: str
    verb: str  # read or send
    faults: str = ""  # with {} for a number drawn from `numbers`
    numbers: range = range(1)
    ends: tuple = (RIGHT,)
    hand: str = ""  # what a person does meanwhile: "unplug" or "interrupt"

    @property
    def title(self):
        return f"{self.verb}, {self.name}"


ANY = (RIGHT, TOLD, ENDED)
KINDS = (
    Kind("nothing wrong", "read"),
    Kind("nothing wrong", "send"),
    Kind("wrong handshakes", "read", "handshake:{}", range(1, 6)),
    Kind("wrong handshakes", "send", "handshake:{}", range(1, 6)),
    Kind("wrong reply", "read", "nibble:{}", range(BANK), (CARRIED,)),
    Kind("short transfer", "read", "short:{}", range(BANK), (TOLD,)),
    Kind("short transfer after wrong handshakes", "read", "handshake:2 short:{}", range(BANK),
         (TOLD,)),
    Kind("stall", "read", "stall:{}", range(BANK), (TOLD,)),
    Kind("stall", "send", "stall:{}", range(BANK), (TOLD,)),
    Kind("failing writes", "read", "write:{}", range(2, BANK), (TOLD,)),
    Kind("failing writes", "send", "write:{}", range(2, BANK), (TOLD,)),
    Kind("unplugged at a byte", "read", "unplug:{}", range(BANK), (TOLD,)),
    Kind("unplugged at a byte", "send", "unplug:{}", range(BANK), (TOLD,)),
    Kind("unplugged at any time", "read", ends=ANY, hand="unplug"),
    Kind("unplugged at any time", "send", ends=ANY, hand="unplug"),
    Kind("silence", "read", "silent:{}", range(BANK + 2), (ENDED,), "interrupt"),
    Kind("silence", "send", "silent:{}", range(4), (ENDED,), "interrupt"),
    Kind("handshakes that are never right", "read", f"handshake:{LIMITLESS}", ends=(ENDED,),
         hand="interrupt"),
    Kind("handshakes that cannot be written", "send", "write:{}", range(2), (ENDED,), "interrupt"),
    Kind("interrupted at any time", "send", ends=ANY, hand="interrupt"),
)


@dataclass(frozen=True)
class Round:
    """One transaction with what goes wrong in it."""

    kind: Kind
    number: int  # for the fault
    delay: float  # seconds until the person's hand moves
    signal: str
    bank: bytes  # what is sent

    @property
    def faults(self):
        return self.kind.faults.format(self.number)


def draw(chance, kind):
    """A round of that kind."""
    return Round(kind, chance.choice(kind.numbers), chance.uniform(0.2, 3.0),
                 chance.choice(("SIGINT", "SIGTERM", "SIGHUP")),
                 bytes(chance.randrange(128) for _ in range(BANK)))


def rounds(count, seed):
    """So many rounds."""
    chance = random.Random(seed)
    deck = []
    for _ in range(count):
        if not deck:
            deck = chance.sample(KINDS, len(KINDS))
        yield draw(chance, deck.pop())
