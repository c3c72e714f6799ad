"""Where a source text can be made wrong, and how: small faults as people make them."""
import re

HIDDEN = re.compile(r'//[^\n]*|^[ \t]*#(?:include|ifndef|ifdef|if|endif|undef|pragma)[^\n]*|'
                    r'"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])+\'', re.M)
OPPOSITES = [('First', 'Last'), ('First', 'Second'), ('Width', 'Height'), ('Columns', 'Rows'), ('Column', 'Row'),
             ('Master', 'Slave'), ('Left', 'Right'), ('Top', 'Bottom'), ('Upper', 'Lower'), ('Inner', 'Outer'),
             ('Horizontal', 'Vertical'), ('Dark', 'Bright'), ('Start', 'Target'), ('X', 'Y'), ('U', 'V'), ('LT', 'RD'),
             ('LD', 'RT'), ('min', 'max'), ('true', 'false'), ('float', 'double'), ('Along', 'Across'),
             ('Slope', 'Intercept'), ('Slope', 'Offset'), ('Before', 'After'), ('x', 'y'), ('x0', 'x1'), ('y0', 'y1'),
             ('Step', 'Reference'), ('Encrypt', 'Decrypt')]
SIGNS = {'<=': ['<', '>'], '>=': ['>', '<'], '<': ['<=', '>='], '>': ['>=', '<='], '==': ['!='], '!=': ['=='],
         '&&': ['||'], '||': ['&&'], '+': ['-'], '-': ['+'], '*': ['/'], '/': ['*'], '+=': ['-=', '='], '-=': ['+='],
         '++': ['--'], '--': ['++'], '%': ['/']}


def mask(text):
    """The text with blanks for comments, literals and directives: the same length."""
    return HIDDEN.sub(lambda m: re.sub(r'[^\n]', ' ', m.group()), text)


def primary_before(text, end):
    """Start of the operand that ends at end: a name, number or call with what it is taken from."""
    i = end
    while i > 0:
        if text[i - 1] in ')]':
            depth, i = 1, i - 1
            while depth and i > 0:
                i -= 1
                depth += (text[i] in ')]') - (text[i] in '([')
        elif re.match(r'[\w.:]', text[i - 1]):
            i -= 1
        elif text[max(i - 2, 0):i] == '->':
            i -= 2
        else:
            break
    return i


def primary_after(text, start):
    i = start + (text[start] == '-')
    while i < len(text):
        if text[i] in '([':
            depth, i = 1, i + 1
            while depth and i < len(text):
                depth += (text[i] in '([') - (text[i] in ')]')
                i += 1
        elif re.match(r'[\w.:<>]', text[i]) and not re.match(r'[:<>](?![:\w])', text[i:i + 2]):
            i += 1
        elif text[i:i + 2] == '->':
            i += 2
        else:
            break
    return i


def elements(text, start):
    """The comma-separated pieces behind the opening bracket at start."""
    found, depth, begin = [], 0, start + 1
    for i in range(start + 1, len(text)):
        c = text[i]
        if c in '([{':
            depth += 1
        elif c in ')]}':
            if depth == 0:
                return found + [(begin, i)]
            depth -= 1
        elif c == ',' and depth == 0:
            found.append((begin, i))
            begin = i + 1
        elif c == ';' and depth == 0:
            return []
    return []


def constants(text):
    for m in re.finditer(r"(?<![\w.'])(0[xX][0-9A-Fa-f]+|\d+)([uUlL]*)(?![\w.'])", text):
        digits = m.group(1)
        for step in (1, -1):
            n = int(digits, 0) + step
            yield m.start(), m.end(), (hex(n) if digits[:2] in ('0x', '0X') else str(n)) + m.group(2)
    for m in re.finditer(r'(?<![\w.])(\d+)\.(\d+)(e-?\d+)?(f?)(?!\w)', text):
        for step in (1, -1):
            n = str(abs(int(m.group(1) + m.group(2)) + step)).zfill(len(m.group(2)) + 1)
            places = len(m.group(2))
            yield m.start(), m.end(), n[:-places] + '.' + n[-places:] + (m.group(3) or '') + m.group(4)


def operators(text):
    for m in re.finditer(r' (<=|>=|<|>|==|!=|&&|\|\||\+=|-=|\+|-|\*|/|%) |(\+\+|--)', text):
        sign = m.group(1) or m.group(2)
        start = m.start(1) if m.group(1) else m.start(2)
        for other in SIGNS[sign]:
            yield start, start + len(sign), other
    for m in re.finditer(r'(?<=[(,=?:!&|]) ?([!-])(?=[\w(])|(?<=return )([!-])(?=[\w(])', text):
        yield m.end() - 1, m.end(), ''


def operands(text):
    signs = {}  # by the place of the operand behind them
    for m in re.finditer(r' (<|>|<=|>=|\+|-|\*|/) (?=[\w(-])', text):
        left, right = primary_before(text, m.start()), primary_after(text, m.end())
        if left == m.start() or text[left:m.start()] == 'return':
            continue
        sign = m.group(1)
        yield left, right, text[m.end():right] + m.group() + text[left:m.start()]
        if {signs.get(left), sign} <= {'+', '-'} or {signs.get(left), sign} <= {'*', '/'}:
            yield left, right, '(' + text[left:right] + ')'
        signs[m.end()] = sign
    for m in re.finditer(r'[({]', text):
        pieces = [p for p in elements(text, m.start()) if text[p[0]:p[1]].strip()]
        for (a, b), (c, d) in zip(pieces, pieces[1:]):
            one, other = text[a:b].strip(), text[c:d].strip()
            if one != other:
                yield a, d, text[a:b].replace(one, other) + text[b:c] + text[c:d].replace(other, one)
    for m in re.finditer(r'\? ([^?:;,]+) : ([^?:;,)]+)', text):
        yield m.start(), m.end(), '? ' + m.group(2) + ' : ' + m.group(1)


def names(text):
    known = set(re.findall(r'\w+', text)) | {'max', 'min', 'true', 'false', 'float', 'double'}
    for m in re.finditer(r'\b[A-Za-z_]\w*', text):
        for pair in OPPOSITES:
            for one, other in (pair, pair[::-1]):
                for at in re.finditer(one, m.group()):
                    name = m.group()[:at.start()] + other + m.group()[at.end():]
                    if name in known:
                        yield m.start(), m.end(), name


def statements(text):
    depth, begin = 0, None
    for i, c in enumerate(text):
        depth += (c == '(') - (c == ')')
        if c in '{}' or (c == ';' and depth == 0):
            if c == ';' and begin is not None and not re.match(
                    r'(using|namespace|struct|static_assert|extern|enum|template|constexpr|const|return)\b',
                    text[begin:i]):
                yield begin, i + 1, ';'
            begin = None
        elif begin is None and not c.isspace():
            begin = i
        if text.startswith('else', i) and depth == 0:
            begin = None


def strings(text):
    for m in re.finditer(r'(?<!include )"((?:\\.|[^"\\/\n])+)"', text):
        if text.rfind('#', text.rfind('\n', 0, m.start()) + 1, m.start()) < 0:
            yield m.start(), m.end(), '"' + re.sub(r'(\\.|.)$', '', m.group(1)) + '"'


def faults(text):
    """All faults of a text as (start, end, replacement)."""
    masked = mask(text)
    found = [f for kind in (constants, operators, operands, names, statements) for f in kind(masked)]
    return sorted(set(f for f in found + list(strings(text)) if text[f[0]:f[1]] != f[2]))
