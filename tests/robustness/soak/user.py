"""A user who does anything that Settings allows, at random. What is possible is read from the picture that `see`
returns."""

NAMES = ["Tom", "Ann", "Zoë", "李", "A & B <c>", "  ", "", "Default", "x" * 60, "tab\tand line\nfeed", "\u202eright to left"]
MOST_ACCOUNTS = 8
KEYPAD_FADE = 0.4  # seconds


def shows_account(picture):
    """Whether a page of an account's position is open: the account's, its picker, or its name's typing."""
    page = picture["page"]
    return "table" in page or any("kRestrict" in row.get("key", "") for row in rows_of(page))


def rows_of(page):
    return [row for section in page.get("sections", []) for row in section["rows"]]


class User:
    def __init__(self, random, passcode):
        self.random = random
        self.passcode = passcode  # a function: the one of the document now
        self.transitions = False
        self.may_delete = True

    def chance(self, probability):
        return self.random.random() < probability

    def digits(self, count=4):
        return "".join(self.random.choice("0123456789") for _ in range(count))

    def next(self, picture):
        """The next few commands."""
        if self.chance(0.04):
            return [self.anything()]
        for part, act in (("keypad", self.on_keypad), ("notice", self.on_notice), ("mail", self.on_mail),
                          ("alert", self.on_alert)):
            if part in picture:
                return act(picture[part])
        page = picture["page"]
        if page.get("moving"):
            return [{"do": "step", "seconds": 0.35}]
        for part, act in (("table", self.on_table), ("sections", self.on_list), ("web", self.on_web)):
            if part in page:
                return act(page)
        return [{"do": "back"}]

    def anything(self):
        """What can be done, or tried, at any time."""
        self.transitions = not self.transitions and self.chance(0.3)
        return self.random.choice([
            {"do": "resign"}, {"do": "drag"}, {"do": "back"}, {"do": "return"}, {"do": "dismiss"},
            {"do": "step", "seconds": round(self.random.random(), 3)},
            {"do": "transitions", "seconds": 0.35 if self.transitions else 0},
            {"do": "tap", "row": "Nowhere"}, {"do": "tap", "section": 1, "row": self.random.randrange(30)},
            {"do": "choose", "action": "Cancel"}, {"do": "keypad", "digits": self.digits()},
            {"do": "see", "first": self.random.randrange(50), "count": self.random.randrange(5)},
            {"do": "wait", "for": "change", "seconds": 0}, {"do": self.digits()}, {"did": "something"},
        ])

    def on_keypad(self, keypad):
        if not keypad["takesInput"] or self.chance(0.15):
            return [{"do": "step", "seconds": self.random.choice([0.1, KEYPAD_FADE])}]
        right = self.passcode()
        kind = self.random.randrange(20)
        if kind < 8 and right:
            return [{"do": "keypad", "digits": right}]
        if kind < 12:
            return [{"do": "keypad", "digits": self.digits()}]
        if kind < 14:
            return [{"do": "keypad", "digits": self.digits(self.random.randint(1, 3))}]
        if kind < 16:
            return [{"do": "keypad", "passcode": right if right and self.chance(0.5) else self.digits()}]
        return [{"do": "keypad", "press": self.random.choice(["delete", "cancel", "cancel", "emergency"])}]

    def on_notice(self, _notice):
        return [{"do": "dismiss"}]

    def on_mail(self, mail):
        if mail.get("sending"):
            return [{"do": "wait", "for": "mail"}]
        return [self.random.choice([
            {"do": "mail", "to": [self.digits() + "@mail.example"], "subject": self.random.choice(NAMES)},
            {"do": "mail", "body": self.random.choice(NAMES)},
            {"do": "mail", "remove": self.random.choice(["log", 0, 5])},
            {"do": "mail", "press": "cancel"}, {"do": "mail", "press": "cancel"}, {"do": "mail", "press": "send"},
        ])]

    def on_alert(self, alert):
        if alert.get("fields") and self.chance(0.6):
            return [{"do": "type", "text": self.random.choice(NAMES)}]
        actions = [action["title"] for action in alert["actions"] if action["title"] != "Delete" or self.may_delete]
        return [{"do": "choose", "action": self.random.choice(actions)}]

    def on_table(self, page):
        count = page["table"][0]["count"]
        if count == 0 or self.chance(0.15):
            return [{"do": "back"}]
        return [self.switch({"section": 0, "row": self.random.randrange(count)})
                for _ in range(self.random.randint(1, 3))]

    def switch(self, row):
        if self.chance(0.7):
            return {"do": "tap"} | row
        return {"do": "set", "to": self.chance(0.5)} | row

    def on_web(self, page):
        links = page["web"].get("links", [])
        following = [{"do": "follow", **how} for link in links for how in ({"link": link["number"]}, {"url": link["url"]})]
        return [self.random.choice([{"do": "back"}, {"do": "wait", "for": "load"}, *following])]

    def on_list(self, page):
        if "back" not in page:
            return [{"do": "tap", "row": "Wardlock"}]
        rows = rows_of(page)
        is_account = any(row.get("key") == "kAccountEnabled" for row in rows)
        if not is_account:
            accounts = [section for section in page["sections"] if section.get("header") == "Accounts"]
            return self.on_root(page, len(accounts[0]["rows"]) if accounts else 0)
        if self.chance(0.1):
            return [{"do": "back"}]
        if self.chance(0.1):
            return [self.tap_row(page, "Apps")]
        return [self.on_row(page) for _ in range(self.random.randint(1, 3))]

    def on_root(self, page, accounts):
        if self.chance(0.12) and accounts < MOST_ACCOUNTS:
            return [{"do": "button"}]
        if self.chance(0.5) and accounts:
            return [{"do": "tap", "section": "Accounts", "row": self.random.randrange(accounts)}]
        if self.chance(0.15):
            return [self.tap_row(page, "Passcode")]
        return [self.on_row(page)]

    @staticmethod
    def tap_row(page, label):
        for number, section in enumerate(page["sections"]):
            for at, row in enumerate(section["rows"]):
                if row["label"] == label:
                    return {"do": "tap", "section": number, "row": at}
        return {"do": "tap", "row": label}

    def on_row(self, page):
        places = [(number, at, row) for number, section in enumerate(page["sections"])
                  for at, row in enumerate(section["rows"])]
        section, at, row = self.random.choice(places)
        address = {"section": section, "row": at}
        if row["kind"] == "switch":
            return self.switch(address)
        if row["kind"] == "editText":
            return {"do": "type", "text": self.random.choice(NAMES)} | address
        return {"do": "tap"} | address
