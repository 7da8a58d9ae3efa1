"""A grammar in the notation of docs/dialect.md, and random sentences of it."""

import re

TOKEN = re.compile(r'"[^"]*"|[A-Za-z_]+|[=;|(){}\[\]]')


class Grammar:
    """Rules by name. A rule is a tree of ("text", t), ("name", n), ("all", [...]), ("any", [...]), ("option", x) and
    ("repeat", x)."""

    def __init__(self, text):
        self.rules = {}
        # The text of an operator may be a backslash or hold brackets, so that quotes are read first.
        self._tokens = TOKEN.findall(text)
        rest = TOKEN.sub("", text).split()
        if rest:
            raise ValueError(f"not of the notation: {rest[0]}")
        self._at = 0
        while self._at < len(self._tokens):
            name = self._take()
            self._expect("=")
            if name in self.rules:
                raise ValueError(f"{name} is defined twice")
            self.rules[name] = self._alternatives()
            self._expect(";")
        self._cost = {}
        self._find_costs()

    def names(self):
        """Every name that a rule uses."""
        found = set()

        def visit(node):
            kind, value = node
            if kind == "name":
                found.add(value)
            elif kind in ("all", "any"):
                for child in value:
                    visit(child)
            elif kind in ("option", "repeat"):
                visit(value)

        for rule in self.rules.values():
            visit(rule)
        return found

    def sentence(self, start, tokens, random, room):
        """A random sentence: its words. Once about `room` rules are used up the shortest way out is taken."""
        self._room = room
        words = []
        self._write(self.rules[start], tokens, random, words)
        return words

    # Reading

    def _take(self):
        self._at += 1
        return self._tokens[self._at - 1]

    def _peek(self):
        return self._tokens[self._at] if self._at < len(self._tokens) else None

    def _expect(self, token):
        got = self._take()
        if got != token:
            raise ValueError(f"{got} where {token} should be")

    def _alternatives(self):
        found = [self._sequence()]
        while self._peek() == "|":
            self._take()
            found.append(self._sequence())
        return found[0] if len(found) == 1 else ("any", found)

    def _sequence(self):
        found = []
        while self._peek() not in ("|", ";", ")", "]", "}", None):
            found.append(self._part())
        return ("all", found)

    def _part(self):
        token = self._take()
        if token.startswith('"'):
            return ("text", token[1:-1])
        for opening, closing, kind in (("(", ")", None), ("[", "]", "option"), ("{", "}", "repeat")):
            if token == opening:
                inner = self._alternatives()
                self._expect(closing)
                return (kind, inner) if kind else inner
        return ("name", token)

    # Writing

    def _find_costs(self):
        """How many rules the shortest sentence of each rule needs."""
        self._cost = {name: float("inf") for name in self.rules}
        changed = True
        while changed:
            changed = False
            for name, rule in self.rules.items():
                cost = 1 + self._price(rule)
                if cost < self._cost[name]:
                    self._cost[name] = cost
                    changed = True

    def _price(self, node):
        kind, value = node
        if kind == "text":
            return 0
        if kind == "name":
            return self._cost.get(value, 0)
        if kind == "all":
            return sum(self._price(child) for child in value)
        if kind == "any":
            return min(self._price(child) for child in value)
        return 0

    def _write(self, node, tokens, random, words):
        kind, value = node
        if kind == "text":
            words.append(value)
        elif kind == "name" and value in self.rules:
            self._room -= 1
            self._write(self.rules[value], tokens, random, words)
        elif kind == "name":
            words.append(random.choice(tokens[value]))
        elif kind == "all":
            for child in value:
                self._write(child, tokens, random, words)
        elif kind == "any":
            choices = value
            if self._room <= 0:
                cheapest = min(self._price(child) for child in value)
                choices = [child for child in value if self._price(child) == cheapest]
            self._write(random.choice(choices), tokens, random, words)
        elif kind == "option":
            if self._room > 0 and random.random() < 0.4:
                self._write(value, tokens, random, words)
        else:
            while self._room > 0 and random.random() < 0.3:
                self._write(value, tokens, random, words)
