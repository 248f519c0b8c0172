#!/usr/bin/env python3
"""Write examples/tallix2026.xml, the sample household year.

The sample is both a demo a newcomer can open and a fixture for tests, so the
output has to be the same bytes on every run: nothing here reads the clock,
the environment or a random generator. Where an amount or a day should look
"varied" it is derived from a hash of a fixed key.

Usage (from anywhere):

    python3 scripts/make_sample_year.py            # writes examples/tallix2026.xml
    python3 scripts/make_sample_year.py -o FILE    # writes FILE instead

What the year holds is described in docs/sample-year.md.
"""

import argparse
import calendar
import hashlib
import os
import sys

YEAR = 2026
MONTHS = ["January", "February", "March", "April", "May", "June", "July",
          "August", "September", "October", "November", "December"]

# The household's "today": November is the month in progress, December is
# still untouched. Lines of November up to TODAY_SETTLED are settled, lines up
# to TODAY are in flight, later ones are planned but not paid yet.
CURRENT_MONTH = 11
TODAY_SETTLED = 3
TODAY = 9

# --------------------------------------------------------------------------
# Small helpers


def fraction(key):
    """A stable number in [0, 1) derived from a text key."""
    digest = hashlib.sha256(key.encode("utf-8")).hexdigest()
    return int(digest[:12], 16) / float(1 << 48)


def vary_cents(key, low, high):
    """An amount in cents between low and high (both in dollars)."""
    lo = int(round(low * 100))
    hi = int(round(high * 100))
    return lo + int(fraction(key) * (hi - lo + 1))


def vary_day(key, low, high):
    return low + int(fraction(key) * (high - low + 1))


def money(cents):
    """Amount text as the program writes it: whole part, '.', two-digit cents."""
    sign = "-" if cents < 0 else ""
    cents = abs(cents)
    return "%s%d.%02d" % (sign, cents // 100, cents % 100)


def date_text(month, day):
    return "%d/%d/%d" % (month, day, YEAR)


def month_length(month):
    return calendar.monthrange(YEAR, month)[1]


def nth_weekday(month, weekday, n):
    """Day of the n-th given weekday (calendar.MONDAY ...) of the month."""
    first = calendar.weekday(YEAR, month, 1)
    return 1 + (weekday - first) % 7 + 7 * (n - 1)


def happened(month, day):
    """Whether a day of the year lies on or before the household's today."""
    return month < CURRENT_MONTH or (month == CURRENT_MONTH and day <= TODAY)


def line_status(month, day, settled, in_flight):
    """Status of a line, seen from the household's today."""
    if month < CURRENT_MONTH or day <= TODAY_SETTLED:
        return settled
    if day <= TODAY:
        return in_flight
    return "notpaid"


# --------------------------------------------------------------------------
# Reference data

FN = "First National"
CU = "Credit Union"
CARDS_INST = "creditcards"

# bank -> accounts; each account: (name, regcolumn, bankcolumn, outstanding),
# each group (title, lastyearclosing); title "0" means no such column.
BANKS = [
    (FN, [
        ("Checking", ("FN Register", 425000), ("FN Bank", 430812),
         ("FN Outstanding", 5812)),
        ("Savings", ("0", 0), ("FN Savings", 1285000), ("0", 0)),
    ]),
    (CU, [
        ("Share Draft", ("CU Register", 218040), ("CU Bank", 218040),
         ("0", 0)),
    ]),
]

# name, lastyearclosing (cents), apr, closing day, due day
CARDS = [
    ("Visa", 61248, "21.99", 22, 17),
    ("Mastercard", 24510, "18.24", 3, 28),
]

# Register columns: the twelve field columns of the blank template, the
# balance columns, then Info, Accumulate and Typeofentry.
FIELD_COLUMNS = [
    ("DAY", "4"), ("DATE", "4"), ("ITEM", "5"), ("Expense", "22"),
    ("Amount", "10"), ("Check", "7"), ("Category", "16"), ("Status", "11"),
    ("Description", "22"), ("Institution", "14"), ("Account", "14"),
    ("B", "1"),
]
TAIL_COLUMNS = [("Info", "12"), ("Accumulate", "12"), ("Typeofentry", "13")]

# Categories in display order; each expense:
# (name, type, default institution, default account, closing day, repeating amount)
CATEGORIES = [
    ("Housing", [
        ("Mortgage", "auto", FN, "Checking", 1, 185000),
        ("Electric", "auto", FN, "Checking", 18, 0),
        ("Water", "recurring", FN, "Checking", 28, 0),
        ("Internet", "auto", CARDS_INST, "Visa", 12, 7999),
    ]),
    ("Living", [
        ("Groceries", "accumulate", FN, "Checking", 0, 0),
        ("Resturants", "accumulate", FN, "Checking", 0, 0),
        ("Gasoline", "accumulate", CU, "Share Draft", 0, 0),
        ("Car Insurance", "auto", CU, "Share Draft", 20, 12850),
    ]),
    ("Medical", [
        ("Pharmacy", "accumulate", FN, "Checking", 0, 0),
        ("Doctor", "recurring", CU, "Share Draft", 0, 4000),
    ]),
    ("Credit Cards", [
        ("Visa", "recurring", FN, "Checking", 22, 0),
        ("Mastercard", "recurring", CU, "Share Draft", 3, 0),
    ]),
]
EXPENSES = {e[0]: (cat,) + e for cat, items in CATEGORIES for e in items}

# name -> (institution, account, type, dayordate, daynumber, amount)
INCOME = [
    ("Acme Payroll", FN, "Checking", "auto date", "25", "0", 315000),
    ("Social Security", CU, "Share Draft", "auto day", "Wednesday", "3", 186400),
    ("IRA Distribution", FN, "Savings", "posted", "0", "0", 53000),
    # picked on a deposit line, these open the transfer dialog
    ("Savings Transfer", FN, "Checking", "transfer", "0", "0", 30000),
    ("Credit Union Move", CU, "Share Draft", "move", "0", "0", 100000),
]

# name -> (number, institution, account, monthly amount, due day, pays by check)
CUSTOMERS = [
    ("Maple Street Bakery", "1001", FN, "Checking", 35000, 5, True),
    ("Riverside Garden Club", "1002", CU, "Share Draft", 12500, 10, False),
]

RMD_HOLDER = "Margaret Ellis"
RMD_ACCOUNT = "Vanguard Traditional IRA"
RMD_LAST_YEAR_BALANCE = 16842000          # cents
RMD_DIVISOR = 265                         # life-expectancy factor 26.5, x10

DESCRIPTIONS = [
    "City Water Dept", "Corner Market", "Dr. Patel copay", "FreshWay Grocery",
    "Luigi's Trattoria", "Main St Pharmacy", "Monthly savings", "Payroll",
    "Shell Station", "Statement balance", "Thai Garden", "Valley Electric",
]

# Seasonal electric bills, January to December (December is the estimate).
ELECTRIC = [18240, 16512, 13877, 11230, 9865, 14120, 17688, 18945, 15010,
            10935, 12890, 16500]


# --------------------------------------------------------------------------
# Register lines


class Line:
    __slots__ = ("day", "expense", "cents", "check", "category", "status",
                 "description", "institution", "account", "info",
                 "accumulate", "kind", "check_of", "seq", "number", "tip")

    def __init__(self, day, expense, cents, category, status, description,
                 institution, account, kind, info="", accumulate="",
                 check_of=None, tip=0):
        self.day = day
        self.expense = expense
        self.cents = cents
        self.check = ""
        self.category = category
        self.status = status
        self.description = description
        self.institution = institution
        self.account = account
        self.info = info
        self.accumulate = accumulate
        self.kind = kind
        self.check_of = check_of      # the "check" line a "posted check" clears
        self.seq = 0
        self.number = 0
        self.tip = tip

    def check_text(self):
        if self.check_of is not None:
            return self.check_of.check
        return self.check


def expense_line(month, day, expense, cents, kind, status, description,
                 institution=None, account=None, tip=0, check_of=None):
    cat, _name, etype, d_inst, d_acct, _closing, _amount = EXPENSES[expense]
    line = Line(day, expense, cents, cat, status, description,
                institution or d_inst, account or d_acct, kind,
                accumulate=etype, check_of=check_of, tip=tip)
    if tip:
        line.info = money(tip)
    return line


class Year:
    """Builds the twelve months of lines and the per-month plan values."""

    def __init__(self):
        self.months = {}                       # month -> [Line]
        self.card_charges = {c[0]: {} for c in CARDS}
        self.fn_check = 2041                   # 2040 was December's water bill
        self.cu_check = 517
        self.maple_check = 4471
        self.pending_water = None              # last month's water check
        self.pending_doctor = None
        self.customer_items = {c[0]: {} for c in CUSTOMERS}

    # charges that each card's payment of the next month settles
    def charge(self, month, line):
        card = line.account
        self.card_charges[card][month] = (
            self.card_charges[card].get(month, 0) + line.cents + line.tip)

    def previous_charges(self, card, month):
        if month == 1:
            return dict((c[0], c[1]) for c in CARDS)[card]
        return self.card_charges[card].get(month - 1, 0)

    def build(self):
        for month in range(1, 12):
            self.months[month] = self.build_month(month)
        self.months[12] = []

    def build_month(self, m):
        ml = month_length(m)
        lines = []
        add = lines.append

        # -- income ---------------------------------------------------------
        pay = 315000 if m < 7 else 324450          # raise in July
        add(Line(25, "Acme Payroll", pay, "Income",
                 line_status(m, 25, "cleared", "processing"), "Payroll",
                 FN, "Checking", "deposit"))
        ss_day = nth_weekday(m, calendar.WEDNESDAY, 3)
        add(Line(ss_day, "Social Security", 186400, "Income",
                 line_status(m, ss_day, "cleared", "processing"), "",
                 CU, "Share Draft", "deposit"))
        add(Line(3, "IRA Distribution", 53000, "Income",
                 line_status(m, 3, "cleared", "processing"), "",
                 FN, "Savings", "deposit"))

        # -- receivables ----------------------------------------------------
        for cname, number, inst, acct, cents, _due, _bycheck in CUSTOMERS:
            items = []
            if cname == "Riverside Garden Club" and m == 8:
                self.customer_items[cname][m] = [None]     # summer break
                continue
            if cname == "Maple Street Bakery":
                day = vary_day("maple %d" % m, 5, 8)
            else:
                day = vary_day("garden %d" % m, 10, 13)
            items.append((day, cents))
            if cname == "Maple Street Bakery" and m == 3:
                items.append((20, 60000))                   # tax-season extra
            refs = []
            for day, amount in items:
                line = Line(day, cname, amount, "Receivables",
                            line_status(m, day, "cleared", "processing"),
                            cname, inst, acct, "receivable", info=number)
                add(line)
                refs.append(line)
            self.customer_items[cname][m] = refs

        # -- automatic payments ----------------------------------------------
        add(expense_line(m, 1, "Mortgage", 185000, "Auto-Bank",
                         line_status(m, 1, "cleared", "processing"), ""))
        add(expense_line(m, 18, "Electric", ELECTRIC[m - 1], "auto",
                         line_status(m, 18, "posted", "processing"),
                         "Valley Electric"))
        internet = 7999 if m < 7 else 8499
        line = expense_line(m, 12, "Internet", internet, "auto",
                            line_status(m, 12, "posted", "pending"), "",
                            CARDS_INST, "Visa")
        add(line)
        self.charge(m, line)
        add(expense_line(m, 20, "Car Insurance", 12850, "auto",
                         line_status(m, 20, "posted", "processing"), ""))

        # -- checks -------------------------------------------------------------
        # last month's water check reaches the bank early in the month
        day = vary_day("water posted %d" % m, 2, 5)
        if self.pending_water is None:
            first = expense_line(m, day, "Water", 5812, "posted check",
                                 line_status(m, day, "posted check",
                                             "processing"),
                                 "City Water Dept")
            first.check = "2040"
            add(first)
        else:
            add(expense_line(m, day, "Water", self.pending_water.cents,
                             "posted check",
                             line_status(m, day, "posted check", "processing"),
                             "City Water Dept", check_of=self.pending_water))
        day = vary_day("water %d" % m, 23, 27)
        summer = 1.35 if m in (6, 7, 8) else 1.0
        water = expense_line(m, day, "Water",
                             vary_cents("water amount %d" % m,
                                        46 * summer, 58 * summer),
                             "check", "cleared" if m < CURRENT_MONTH
                             else "pending", "City Water Dept")
        add(water)
        self.pending_water = water

        # card payments: the check is written, the bank posts it a few days on
        for card, inst, acct, lo, hi in (("Visa", FN, "Checking", 7, 9),
                                         ("Mastercard", CU, "Share Draft",
                                          19, 21)):
            day = vary_day("%s check %d" % (card, m), lo, hi)
            cents = self.previous_charges(card, m)
            chk = expense_line(m, day, card, cents, "check",
                               "cleared" if m < CURRENT_MONTH else "pending",
                               "Statement balance")
            add(chk)
            if m < CURRENT_MONTH:
                add(expense_line(m, day + 4, card, cents, "posted check",
                                 "posted check", "Statement balance",
                                 check_of=chk))

        # doctor visits, paid by check at the desk
        if self.pending_doctor is not None:
            add(expense_line(m, 2, "Doctor", self.pending_doctor.cents,
                             "posted check", "posted check", "Dr. Patel copay",
                             check_of=self.pending_doctor))
            self.pending_doctor = None
        if m in (2, 5, 8):
            day = vary_day("doctor %d" % m, 9, 12)
            chk = expense_line(m, day, "Doctor", 4000, "check", "cleared",
                               "Dr. Patel copay")
            add(chk)
            add(expense_line(m, day + 5, "Doctor", 4000, "posted check",
                             "posted check", "Dr. Patel copay", check_of=chk))
        if m == 10:
            chk = expense_line(m, 27, "Doctor", 6500, "check", "cleared",
                               "Dr. Patel copay")
            add(chk)
            self.pending_doctor = chk

        # -- everyday spending -------------------------------------------------
        day = vary_day("groceries debit %d" % m, 3, 6)
        add(expense_line(m, day, "Groceries",
                         vary_cents("groceries debit amt %d" % m, 95, 165),
                         "debit", line_status(m, day, "cleared", "processing"),
                         "FreshWay Grocery"))
        day = vary_day("groceries card %d" % m, 16, 21)
        line = expense_line(m, day, "Groceries",
                            vary_cents("groceries card amt %d" % m, 60, 140),
                            "credit card",
                            line_status(m, day, "posted", "pending"),
                            "Corner Market", CARDS_INST, "Visa")
        add(line)
        self.charge(m, line)

        dinners = [(vary_day("dinner late %d" % m, 22, 27),
                    "Luigi's Trattoria" if m % 2 else "Thai Garden")]
        if m % 2 == 0:
            dinners.append((vary_day("dinner early %d" % m, 8, 11),
                            "Luigi's Trattoria"))
        for i, (day, place) in enumerate(dinners):
            cents = vary_cents("dinner amt %d %d" % (m, i), 35, 75)
            tip = int(round(cents * 0.18 / 100.0)) * 100
            line = expense_line(m, day, "Resturants", cents, "credit card",
                                line_status(m, day, "posted", "pending"),
                                place, CARDS_INST, "Visa", tip=tip)
            add(line)
            self.charge(m, line)

        day = vary_day("gas card %d" % m, 9, 13)
        line = expense_line(m, day, "Gasoline",
                            vary_cents("gas card amt %d" % m, 38, 62),
                            "credit card",
                            line_status(m, day, "posted", "pending"),
                            "Shell Station", CARDS_INST, "Mastercard")
        add(line)
        self.charge(m, line)
        if m in (3, 6, 9):
            day = vary_day("gas debit %d" % m, 24, 28)
            add(expense_line(m, day, "Gasoline",
                             vary_cents("gas debit amt %d" % m, 30, 55),
                             "debit", "cleared", "Shell Station"))

        day = vary_day("pharmacy %d" % m, 13, 15)
        cents = vary_cents("pharmacy amt %d" % m, 12, 48)
        if m % 2:
            line = expense_line(m, day, "Pharmacy", cents, "medication",
                                line_status(m, day, "posted", "pending"),
                                "Main St Pharmacy", CARDS_INST, "Mastercard")
            self.charge(m, line)
        else:
            line = expense_line(m, day, "Pharmacy", cents, "medication",
                                line_status(m, day, "cleared", "processing"),
                                "Main St Pharmacy")
        add(line)

        # -- transfers, as the transfer dialog writes them on a deposit line:
        # Institution/Account is where the money comes from, Info/Accumulate
        # where it goes
        add(Line(16, "Savings Transfer", 30000, "",
                 line_status(m, 16, "cleared", "processing"),
                 "Monthly savings", FN, "Checking", "deposit",
                 info=FN, accumulate="Savings"))
        day = vary_day("move %d" % m, 21, 23)
        add(Line(day, "Credit Union Move", 100000, "",
                 line_status(m, day, "cleared", "processing"), "",
                 CU, "Share Draft", "deposit", info=FN, accumulate="Savings"))

        # keep days inside the month (February is short)
        for line in lines:
            line.day = min(line.day, ml)

        # checks are numbered in the order they were written
        for line in sorted((l for l in lines if l.kind == "check"),
                           key=lambda l: (l.day, l.expense)):
            if line.institution == FN:
                line.check = str(self.fn_check)
                self.fn_check += 1
            else:
                line.check = str(self.cu_check)
                self.cu_check += 1

        # latest day at the top, earliest at the bottom; a day's lines
        # stay together in the order they were entered
        for i, line in enumerate(lines):
            line.seq = i
        lines.sort(key=lambda l: (-l.day, l.seq))
        for i, line in enumerate(lines):
            line.number = i + 1
        return lines


# --------------------------------------------------------------------------
# XML tree and writer


class E:
    __slots__ = ("tag", "attrs", "text", "children")

    def __init__(self, tag, attrs=None, text="", children=None):
        self.tag = tag
        self.attrs = attrs or []
        self.text = text
        self.children = children if children is not None else []


def leaf(tag, text=""):
    return E(tag, text=str(text))


def escape_text(s):
    return s.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;")


def escape_attr(s):
    return escape_text(s).replace('"', "&quot;")


def write_element(out, e, depth):
    pad = "  " * depth
    attrs = "".join(' %s="%s"' % (k, escape_attr(v)) for k, v in e.attrs)
    if e.children:
        out.append("%s<%s%s>\n" % (pad, e.tag, attrs))
        for child in e.children:
            write_element(out, child, depth + 1)
        out.append("%s</%s>\n" % (pad, e.tag))
    else:
        out.append("%s<%s%s>%s</%s>\n"
                   % (pad, e.tag, attrs, escape_text(e.text), e.tag))


def serialize(root):
    out = ['<?xml version="1.0" encoding="UTF-8"?>\n']
    write_element(out, root, 0)
    return "".join(out)


# --------------------------------------------------------------------------
# Building the document


def register_element(year):
    months = []
    for m in range(1, 13):
        name = MONTHS[m - 1]
        items = []
        lines = year.months[m]
        if not lines:
            blank = Line(1, "", None, "", "", "", "", "", "debit")
            blank.number = 1
            lines = [blank]
        for line in lines:
            items.append(E("item", [("line", str(line.number))], children=[
                leaf("day", line.day),
                leaf("expense", line.expense),
                leaf("debit", "" if line.cents is None else money(line.cents)),
                leaf("check", line.check_text()),
                leaf("categoty", line.category),
                leaf("status", line.status),
                leaf("description", line.description),
                leaf("institution", line.institution),
                leaf("account", line.account),
                leaf("info", line.info),
                leaf("accumulate", line.accumulate),
                leaf("typeofentry", line.kind),
            ]))
        months.append(E("month", [("month", name), ("id", name)],
                        children=items))
    return E("register", children=months)


def balance_columns():
    cols = []
    for _bank, accounts in BANKS:
        for _acct, reg, bank, outstanding in accounts:
            for (title, _v), kind in ((reg, "regcolumn"), (bank, "bankcolumn"),
                                      (outstanding, "outstanding check")):
                if title != "0":
                    cols.append((title, "12", kind))
    for card in CARDS:
        cols.append((card[0], "12", "creditcard"))
    return cols


def registercolumns_element():
    cols = [(t, w, "field") for t, w in FIELD_COLUMNS]
    cols += balance_columns()
    cols += [(t, w, "field") for t, w in TAIL_COLUMNS]
    children = []
    for pos, (title, width, kind) in enumerate(cols, start=1):
        children.append(E("column", [("column", title)], children=[
            leaf("title", title), leaf("width", width), leaf("kind", kind),
            leaf("position", pos)]))
    return E("registercolumns", children=children)


def group(tag, title, lastyear):
    start = money(lastyear) if title != "0" else "0"
    children = [leaf("title", title), leaf("lastyearclosing", start)]
    children += [leaf("closing", "0") for _ in range(12)]
    return E(tag, children=children)


def institutions_element():
    banks = []
    for bank, accounts in BANKS:
        accts = []
        for acct, reg, bnk, outstanding in accounts:
            accts.append(E("bankaccount", children=[
                leaf("account", acct),
                group("regcolumn", *reg),
                group("bankcolumn", *bnk),
                group("outstanding", *outstanding),
            ]))
        banks.append(E("name", [("id", bank)], children=accts))
    cards = []
    for name, lastyear, apr, closing, due in CARDS:
        children = [leaf("type", "creditcards"), leaf("columnname", name),
                    leaf("lastyearclosing", money(lastyear)), leaf("apr", apr),
                    leaf("closingday", closing), leaf("dueday", due)]
        children += [leaf("closing", "0") for _ in range(12)]
        cards.append(E("name", [("id", name)], children=children))
    return E("financial-institutions", children=[
        E("financial-institution", [("id", "banks")],
          children=[E("names", children=banks)]),
        E("financial-institution", [("id", "creditcards")],
          children=[E("names", children=cards)]),
    ])


SETTLED = ("cleared", "posted", "posted check")


def plan_status(lines):
    statuses = [l.status for l in lines]
    if all(s in SETTLED for s in statuses):
        return "cleared"
    if "pending" in statuses:
        return "pending"
    if "processing" in statuses:
        return "processing"
    return "notpaid"


def posted_status(lines):
    """A plan entry whose line is already in the register was posted there:
    it is no longer "notpaid", or showing the month would post it again."""
    status = plan_status(lines)
    return "posted" if status == "notpaid" else status


def month_entry(m, amount, datepaid, duedate, status, kind, check):
    return E("month", children=[
        leaf("name", MONTHS[m - 1]), leaf("amount", amount),
        leaf("datepaid", datepaid), leaf("duedate", duedate),
        leaf("status", status), leaf("type", kind), leaf("check", check)])


def expense_months(year, name, etype, closing, repeating):
    entries = []
    for m in range(1, 13):
        lines = [l for l in year.months[m] if l.expense == name]
        ml = month_length(m)
        if name in ("Visa", "Mastercard", "Water", "Doctor"):
            # the month's bill is the check written this month; the posted
            # check that clears it is the bank's side of the same payment
            checks = [l for l in lines if l.kind == "check"]
            if checks:
                chk = checks[0]
                posted = [l for l in lines if l.check_of is chk]
                kind = posted[0].kind if posted else chk.kind
                status = chk.status
                written = happened(m, chk.day)
                if name in ("Visa", "Mastercard"):
                    card = [c for c in CARDS if c[0] == name][0]
                    due = date_text(m, card[4])
                else:
                    due = date_text(m, chk.day if name == "Doctor"
                                    else closing)
                entries.append(month_entry(
                    m, money(chk.cents),
                    date_text(m, chk.day) if written else "0", due, status,
                    kind, chk.check))
            elif m == 12 and name != "Doctor":
                if name in ("Visa", "Mastercard"):
                    card = [c for c in CARDS if c[0] == name][0]
                    cents = year.card_charges[name].get(11, 0)
                    due = date_text(12, card[4])
                else:
                    cents, due = 6000, date_text(12, closing)
                entries.append(month_entry(m, money(cents), "0", due,
                                           "notpaid", "0", "0"))
            else:
                entries.append(month_entry(m, "0", "0", "0", "no entry",
                                           "0", "0"))
            continue
        if etype == "accumulate":
            total = sum(l.cents + l.tip for l in lines)
            if lines:
                last = max(lines, key=lambda l: l.day)
                spent = [l.day for l in lines if l.status != "notpaid"]
                entries.append(month_entry(
                    m, money(total),
                    date_text(m, max(spent)) if spent else "0",
                    date_text(m, ml), plan_status(lines), last.kind, "0"))
            else:
                entries.append(month_entry(m, "0", "0", date_text(m, ml),
                                           "notpaid", "0", "0"))
            continue
        # recurring and automatic bills: one line a month
        due = date_text(m, closing)
        if lines:
            line = lines[0]
            status = posted_status(lines)
            entries.append(month_entry(
                m, money(line.cents),
                date_text(m, line.day) if status != "notpaid" else "0",
                due, status, line.kind, "0"))
        else:
            cents = ELECTRIC[11] if name == "Electric" else repeating
            if name == "Internet":
                cents = 8499
            entries.append(month_entry(m, money(cents), "0", due, "notpaid",
                                       "0", "0"))
    return entries


def categories_element(year):
    cats = []
    for cat, items in CATEGORIES:
        names = []
        for name, etype, inst, acct, closing, repeating in items:
            names.append(E("name", [("id", name)], children=[
                leaf("category", cat), leaf("type", etype),
                leaf("account", acct), leaf("closingday", closing),
                leaf("institution", inst), leaf("reset", "0"),
                leaf("amount", money(repeating) if repeating else "0"),
                E("months", children=expense_months(
                    year, name, etype, closing, repeating)),
            ]))
        cats.append(E("category", [("id", cat)], children=[
            leaf("type", "category"), leaf("numberItems", len(items)),
            E("names", children=names)]))
    return E("catagories", children=cats)


def income_element(year):
    sources = []
    for name, inst, acct, kind, dayordate, daynumber, amount in INCOME:
        months = []
        for m in range(1, 13):
            lines = [l for l in year.months[m] if l.expense == name]
            if lines:
                total = sum(l.cents for l in lines)
                day = lines[0].day
                status = posted_status(lines)
            else:
                total = 0
                status = "notpaid"
                if kind == "auto date":
                    day = int(dayordate)
                elif kind == "auto day":
                    day = nth_weekday(m, calendar.WEDNESDAY, int(daynumber))
                else:
                    day = 3
            months.append(E("month", children=[
                leaf("name", MONTHS[m - 1]),
                leaf("amount", money(total) if total else "0"),
                leaf("date", date_text(m, day)), leaf("status", status)]))
        sources.append(E("name", [("id", name)], children=[
            leaf("institution", inst), leaf("account", acct),
            leaf("type", kind), leaf("dayordate", dayordate),
            leaf("daynumber", daynumber), leaf("amount", money(amount)),
            E("months", children=months)]))
    return E("income", children=sources)


def revenue(line, amount, datepaid, duedate, status, kind, check):
    return E("revenue", children=[
        leaf("line", line), leaf("amount", amount), leaf("datepaid", datepaid),
        leaf("duedate", duedate), leaf("status", status), leaf("type", kind),
        leaf("check", check)])


def receivables_element(year):
    customers = []
    for cname, number, inst, acct, cents, due, bycheck in CUSTOMERS:
        months = []
        for m in range(1, 13):
            refs = year.customer_items[cname].get(m)
            items = []
            if refs is None:                         # December: expected
                items.append(revenue("0", money(cents), "0",
                                     date_text(m, due), "notpaid", "0", "0"))
            elif refs == [None]:                     # nothing due this month
                items.append(revenue("0", "0", "0", "0", "no entry", "0",
                                     "0"))
            else:
                for line in refs:
                    check = "0"
                    if bycheck and line.status != "notpaid":
                        check = str(year.maple_check)
                        year.maple_check += 1
                    status = plan_status([line])
                    items.append(revenue(
                        str(line.number), money(line.cents),
                        date_text(m, line.day) if status != "notpaid"
                        else "0",
                        date_text(m, due if line.cents == cents
                                  else line.day),
                        status, line.kind, check))
            months.append(E("month", children=items))
        customers.append(E("name", [("id", cname)], children=[
            leaf("number", number), leaf("institution", inst),
            leaf("account", acct), leaf("amount", money(cents)),
            E("months", children=months)]))
    customers.append(revenue("0", "0", "0", "0", "no entry", "0", "0"))
    return E("receivables", children=customers)


def rmds_element(year):
    draws = sum(l.cents for m in range(1, 13) for l in year.months[m]
                if l.expense == "IRA Distribution" and l.status in SETTLED)
    required = (RMD_LAST_YEAR_BALANCE * 10 + RMD_DIVISOR // 2) // RMD_DIVISOR
    return E("rmds", children=[
        E("rmd", [("id", "IRA Distribution")], children=[
            E("holder", children=[
                leaf("name", RMD_HOLDER),
                E("accounts", children=[
                    E("account", children=[
                        leaf("name", RMD_ACCOUNT),
                        leaf("lastyearbalance", money(RMD_LAST_YEAR_BALANCE)),
                        leaf("rmdamount", money(required)),
                        leaf("currentdraw", money(draws)),
                    ])])])])])


def descriptions_element():
    return E("descriptions",
             children=[leaf("description", d) for d in DESCRIPTIONS])


def build_document():
    year = Year()
    year.build()
    return E("tallix", children=[
        register_element(year),
        registercolumns_element(),
        institutions_element(),
        categories_element(year),
        income_element(year),
        receivables_element(year),
        rmds_element(year),
        descriptions_element(),
    ])


def main(argv):
    here = os.path.dirname(os.path.abspath(__file__))
    default = os.path.join(os.path.dirname(here), "examples", "tallix2026.xml")
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("-o", "--output", default=default,
                        help="file to write (default: examples/tallix2026.xml)")
    args = parser.parse_args(argv)
    text = serialize(build_document())
    with open(args.output, "w", encoding="utf-8", newline="\n") as f:
        f.write(text)
    return 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
