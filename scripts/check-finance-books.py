#!/usr/bin/env python3
# SPDX-FileCopyrightText: 2026 Larchfield
# SPDX-License-Identifier: GPL-3.0-or-later
"""Empty books for GnuCash and KMyMoney, and a check of what their imports of Quillmere's
export for them (Bonds.qif, BondPrices.csv) left in a saved book.

  check-finance-books.py new-gnucash BOOK.gnucash
  check-finance-books.py new-kmymoney BOOK.kmy
  check-finance-books.py check-gnucash BOOK.gnucash EXPORT-DIR [YYYY-MM]
  check-finance-books.py check-kmymoney BOOK.kmy EXPORT-DIR [YYYY-MM]

The check compares the book with the exported files: every price of the files is in the book
with its date and amount, every purchase with its quantity and cost, the purchases are paid
from an opening balance booked against equity, and the bonds' worth on the last day of the
valuation month (default: the latest month the files price) is the exported value. It prints
the figures and exits 1 on any difference.
"""
import calendar
import csv
import datetime
import gzip
import sys
import uuid
import xml.etree.ElementTree as ET
from decimal import Decimal
from fractions import Fraction

GNC = {
    'gnc': 'http://www.gnucash.org/XML/gnc', 'act': 'http://www.gnucash.org/XML/act',
    'book': 'http://www.gnucash.org/XML/book', 'cd': 'http://www.gnucash.org/XML/cd',
    'cmdty': 'http://www.gnucash.org/XML/cmdty', 'price': 'http://www.gnucash.org/XML/price',
    'split': 'http://www.gnucash.org/XML/split', 'trn': 'http://www.gnucash.org/XML/trn',
    'ts': 'http://www.gnucash.org/XML/ts', 'slot': 'http://www.gnucash.org/XML/slot',
}


def new_gnucash(path):
    ns = ' '.join(f'xmlns:{k}="{v}"' for k, v in GNC.items())
    with open(path, 'w', encoding='utf-8') as out:
        out.write(f'''<?xml version="1.0" encoding="utf-8" ?>
<gnc-v2 {ns}>
<gnc:count-data cd:type="book">1</gnc:count-data>
<gnc:book version="2.0.0">
<book:id type="guid">{uuid.uuid4().hex}</book:id>
<gnc:count-data cd:type="commodity">1</gnc:count-data>
<gnc:count-data cd:type="account">1</gnc:count-data>
<gnc:commodity version="2.0.0"><cmdty:space>CURRENCY</cmdty:space><cmdty:id>USD</cmdty:id>
<cmdty:get_quotes/><cmdty:quote_source>currency</cmdty:quote_source><cmdty:quote_tz/></gnc:commodity>
<gnc:account version="2.0.0"><act:name>Root Account</act:name><act:id type="guid">{uuid.uuid4().hex}</act:id>
<act:type>ROOT</act:type><act:commodity><cmdty:space>CURRENCY</cmdty:space><cmdty:id>USD</cmdty:id></act:commodity>
<act:commodity-scu>100</act:commodity-scu></gnc:account>
</gnc:book>
</gnc-v2>
''')


def new_kmymoney(path):
    accounts = ''.join(
        f'<ACCOUNT id="AStd::{name}" name="{name}" type="{kind}" parentaccount="" currency="USD" institution="" '
        f'lastmodified="" lastreconciled="" opened="1900-01-01" number="" description=""/>'
        for name, kind in (('Asset', 9), ('Liability', 10), ('Income', 12), ('Expense', 13), ('Equity', 16)))
    today = datetime.date.today().isoformat()
    xml = f'''<?xml version="1.0" encoding="utf-8"?>
<!DOCTYPE KMYMONEY-FILE>
<KMYMONEY-FILE>
<FILEINFO><CREATION_DATE date="{today}"/><LAST_MODIFIED_DATE date="{today}"/><VERSION id="1"/><FIXVERSION id="5"/></FILEINFO>
<USER name="" email=""/>
<INSTITUTIONS count="0"/><PAYEES count="0"/><COSTCENTERS count="0"/><TAGS count="0"/>
<ACCOUNTS count="5">{accounts}</ACCOUNTS>
<TRANSACTIONS count="0"/>
<KEYVALUEPAIRS><PAIR key="kmm-baseCurrency" value="USD"/></KEYVALUEPAIRS>
<SCHEDULES count="0"/><SECURITIES count="0"/>
<CURRENCIES count="1"><CURRENCY id="USD" name="US Dollar" symbol="$" type="3" saf="100" scf="100" pp="100" rounding-method="7"/></CURRENCIES>
<PRICES count="0"/><REPORTS count="0"/><BUDGETS count="0"/><ONLINEJOBS count="0"/>
</KMYMONEY-FILE>
'''
    with gzip.open(path, 'wt', encoding='utf-8') as out:
        out.write(xml)


class Export:
    """What the exported files say: prices by symbol and date, purchases by security name."""

    def __init__(self, directory):
        self.prices = {}      # (symbol, date) -> Decimal
        self.names = {}       # name -> symbol
        self.purchases = []   # (name, quantity, cost)
        with open(f'{directory}/BondPrices.csv', newline='', encoding='utf-8') as f:
            for row in csv.DictReader(f):
                date = datetime.datetime.strptime(row['Date'], '%m/%d/%Y').date()
                self.prices[(row['Symbol'], date)] = Decimal(row['Amount'])
        record, section = {}, None
        with open(f'{directory}/Bonds.qif', encoding='utf-8') as f:
            for line in f.read().split('\n'):
                if line.startswith('!'):
                    section = line
                elif line == '^':
                    if section == '!Type:Security':
                        self.names[record['N']] = record['S']
                    elif section == '!Type:Invst' and record.get('N') == 'Buy':
                        self.purchases.append((record['Y'], Decimal(record['Q']), Decimal(record['T'])))
                    record = {}
                elif line:
                    record[line[0]] = line[1:]

    def cost(self):
        return sum(cost for _, _, cost in self.purchases)

    def last_month(self):
        return max(date for _, date in self.prices)

    def worth(self, on):
        """Each security at its latest price on or before the day; unpriced ones at cost."""
        total = Decimal(0)
        for name, quantity, cost in self.purchases:
            dated = [(d, p) for (s, d), p in self.prices.items() if s == self.names[name] and d <= on]
            total += quantity * max(dated)[1] if dated else cost
        return total


def last_day(month):
    year, number = map(int, month.split('-'))
    return datetime.date(year, number, calendar.monthrange(year, number)[1])


def compare(program, export, book_prices, book_purchases, opening, on):
    """book_prices: {(symbol, date): Decimal}; book_purchases: [(name, quantity, cost)]."""
    failures = []
    missing = [key for key, price in export.prices.items() if book_prices.get(key) != price]
    if missing:
        failures.append(f'{len(missing)} prices missing or different, first {missing[0]}')
    if sorted(book_purchases) != sorted(export.purchases):
        failures.append(f'purchases differ: book {sorted(book_purchases)} export {sorted(export.purchases)}')
    if opening != export.cost():
        failures.append(f'opening balance from equity {opening}, purchases cost {export.cost()}')
    worth = Decimal(0)
    for name, quantity, cost in book_purchases:
        dated = [(d, p) for (s, d), p in book_prices.items() if s == export.names.get(name) and d <= on]
        worth += quantity * max(dated)[1] if dated else cost
    if worth != export.worth(on):
        failures.append(f'worth on {on} {worth}, export {export.worth(on)}')
    print(f'{program}: {len(export.prices)} prices of {len(export.names)} securities found; '
          f'{len(book_purchases)} purchases costing ${export.cost()}, paid from an opening balance of ${opening}; '
          f'bonds worth ${worth} on {on}')
    for failure in failures:
        print(f'{program}: FAILED: {failure}')
    return not failures


def read_xml(path):
    with open(path, 'rb') as f:
        data = f.read()
    if data[:2] == b'\x1f\x8b':
        data = gzip.decompress(data)
    return ET.fromstring(data)


def check_gnucash(path, export, on):
    root = read_xml(path)
    accounts = {}
    for a in root.iter(f'{{{GNC["gnc"]}}}account'):
        accounts[a.find('act:id', GNC).text] = (a.find('act:name', GNC).text, a.find('act:type', GNC).text,
                                                 a.find('act:commodity/cmdty:id', GNC).text)
    prices = {}
    for p in root.iter('price'):
        source = p.find('price:source', GNC)
        if source is None or source.text != 'user:price':
            continue  # the prices GnuCash adds from the purchases themselves
        symbol = p.find('price:commodity/cmdty:id', GNC).text
        date = datetime.date.fromisoformat(p.find('price:time/ts:date', GNC).text[:10])
        prices[(symbol, date)] = Decimal(Fraction(p.find('price:value', GNC).text).numerator) / Fraction(p.find('price:value', GNC).text).denominator
    purchases, opening = [], Decimal(0)
    for t in root.iter(f'{{{GNC["gnc"]}}}transaction'):
        for s in t.iter(f'{{{GNC["trn"]}}}split'):
            name, kind, _ = accounts[s.find('split:account', GNC).text]
            value = Fraction(s.find('split:value', GNC).text)
            if kind == 'STOCK':
                quantity = Fraction(s.find('split:quantity', GNC).text)
                purchases.append((name, Decimal(quantity.numerator) / quantity.denominator,
                                  Decimal(value.numerator) / value.denominator))
            elif kind == 'EQUITY':
                opening -= Decimal(value.numerator) / value.denominator
    return compare('GnuCash', export, prices, purchases, opening, on)


def check_kmymoney(path, export, on):
    root = read_xml(path)
    accounts = {a.get('id'): (a.get('name'), a.get('type')) for a in root.iter('ACCOUNT')}
    symbols = {s.get('id'): s.get('symbol') for s in root.iter('SECURITY')}
    prices = {}
    for pair in root.iter('PRICEPAIR'):
        for p in pair.findall('PRICE'):
            if p.get('source') == 'Transaction':
                continue  # the prices KMyMoney adds from the purchases themselves
            value = Fraction(p.get('price'))
            prices[(symbols.get(pair.get('from')), datetime.date.fromisoformat(p.get('date')))] = \
                Decimal(value.numerator) / value.denominator
    purchases, opening = [], Decimal(0)
    for t in root.iter('TRANSACTION'):
        for s in t.iter('SPLIT'):
            name, kind = accounts[s.get('account')]
            value = Fraction(s.get('value'))
            if kind == '15':  # stock
                shares = Fraction(s.get('shares'))
                purchases.append((name, Decimal(shares.numerator) / shares.denominator,
                                  Decimal(value.numerator) / value.denominator))
            elif kind == '16':  # equity
                opening -= Decimal(value.numerator) / value.denominator
    return compare('KMyMoney', export, prices, purchases, opening, on)


def main(argv):
    if len(argv) == 3 and argv[1] == 'new-gnucash':
        new_gnucash(argv[2])
        return 0
    if len(argv) == 3 and argv[1] == 'new-kmymoney':
        new_kmymoney(argv[2])
        return 0
    if len(argv) in (4, 5) and argv[1] in ('check-gnucash', 'check-kmymoney'):
        export = Export(argv[3])
        on = last_day(argv[4]) if len(argv) == 5 else export.last_month()
        check = check_gnucash if argv[1] == 'check-gnucash' else check_kmymoney
        return 0 if check(argv[2], export, on) else 1
    print(__doc__, file=sys.stderr)
    return 2


if __name__ == '__main__':
    sys.exit(main(sys.argv))
