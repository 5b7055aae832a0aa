"""Lines of logic in C++ sources, and the faults that somebody could make in each."""
import re

# What no test can or should tell: logs, our own assertions, room that is only reserved, and the
# measures and fixed texts of a layout.
LEFT_ALONE = re.compile(
    r"\bq(Debug|Info|Warning|Critical|C\w+)\(|Q_\w+\(|static_assert|\breserve\(|\bmoc_"
    r"|\b(setContentsMargins|setSpacing|setHorizontalSpacing|setVerticalSpacing|addStretch|addSpacing"
    r"|setMargin|setStretch\w*|setColumnStretch|setRowStretch|setSizePolicy)\("
    r"|\bset(Text|ToolTip|StatusTip|WhatsThis|Title|PlaceholderText|Accessible\w+)\((\w+::)?tr\(")
NOT_LOGIC = re.compile(r"^\s*($|[{}();,]+$|#|//|using |namespace |template|class |struct |enum |friend "
                       r"|public|private|protected|default:|case [\w:]+:$)")

# (what is told, pattern on the masked line, what stands there instead)
SWAPS = [(f"{a} to {b}", re.compile(f"(?<= ){re.escape(a)}(?= )"), b) for a, b in (
    ("==", "!="), ("!=", "=="), ("<", "<="), ("<=", "<"), (">", ">="), (">=", ">"),
    ("&&", "||"), ("||", "&&"), ("+", "-"), ("-", "+"), ("*", "/"), ("/", "*"), ("%", "/"),
    ("&", "|"), ("|", "&"), ("+=", "-="), ("-=", "+="), ("|=", "&="), ("&=", "|="))]
SWAPS += [(f"{a} to {b}", re.compile(rf"\b{a}\b"), b) for a, b in (
    ("true", "false"), ("false", "true"), ("continue", "break"))]
SWAPS += [(f"{a}() to {b}()", re.compile(rf"\b{a}(?=\()"), b) for a, b in (
    ("x", "y"), ("y", "x"), ("width", "height"), ("height", "width"), ("min", "max"), ("max", "min"),
    ("first", "last"), ("last", "first"))]
SWAPS += [("drop !", re.compile(r"!(?=[\w(])"), ""), ("++ to --", re.compile(r"\+\+(?=\w)"), "--"),
          ("drop break", re.compile(r"\bbreak(?=;)"), "")]
NUMBER = re.compile(r"(?<![\w.])\d+(?![\w.'])")
OPERAND = r"\*?[A-Za-z_][\w:]*(?:(?:\.|->|::)\w+|\[[^\]]*\]|\([^()]*\))*"
STATEMENT = re.compile(rf"(emit )?{OPERAND}(\(.*\)| [-+*/%&|^]?= .*| (<<|>>)= .*);$")
QUESTION = re.compile(
    r"\s+return (.*(?: [=!<>]=? | && | \|\| |\bis[A-Z]|\bhas[A-Z]|\bcan[A-Z]).*);$")
EARLY = "return early"
BEFORE_STATEMENT = re.compile(r"[;{}:]$|\belse$|^(} else )?(if|for|while)\b.*\)$")
NOTHING = re.compile(r"return (\{\}|false|nullptr|0|Q\w+\(\)|std::nullopt);$")
KEYWORD = re.compile(r"(return|if|for|while|switch|else|do|delete|const|auto|static)\b")


def masked(source):
    """The source with blanks for what stands in comments, texts and characters."""
    pattern = re.compile(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|(?<!\w)\'(?:\\.|[^\'\\\n])+\'', re.S)

    def blank(match):
        text = match.group()
        if text[0] in "\"'":
            return text[0] + " " * (len(text) - 2) + text[0]
        return re.sub(r"[^\n]", " ", text)
    return pattern.sub(blank, source).split("\n")


def balanced(text):
    return all(text.count(a) == text.count(b) for a, b in ("()", "{}", "[]"))


class Source:
    """One file, of which faults(line) tells what could be wrong in that line (they count from 0).

    A fault is (what is told, {line: new text}).
    """

    def __init__(self, text):
        self.lines = text.split("\n")
        self.masked = [line.rstrip() for line in masked(text)]

    def logic(self):
        return [line for line in range(len(self.lines)) if self.faults(line)]

    def faults(self, line):
        code = self.masked[line]
        if not code.startswith(" ") or NOT_LOGIC.match(code) or LEFT_ALONE.search(self.lines[line]):
            return []
        found = [*self._swaps(line), *self._numbers(line), *self._conditions(line),
                 *self._choices(line), *self._statements(line)]
        # A line in which nothing else can be wrong is no logic, a plain declaration say.
        return [] if all(told == EARLY for told, _ in found) else found

    def _put(self, line, begin, end, text):
        old = self.lines[line]
        return {line: old[:begin] + text + old[end:]}

    def _swaps(self, line):
        for told, pattern, instead in SWAPS:
            for match in pattern.finditer(self.masked[line]):
                yield told, self._put(line, *match.span(), instead)

    def _numbers(self, line):
        for match in NUMBER.finditer(self.masked[line]):
            number = int(match.group())
            for other in {number + 1, abs(number - 1)}:
                yield f"{number} to {other}", self._put(line, *match.span(), str(other))

    def _conditions(self, line):
        code = self.masked[line]
        for match in re.finditer(r"\b(if|while) \(", code):
            depth, end = 1, match.end()
            while end < len(code) and depth:
                depth += {"(": 1, ")": -1}.get(code[end], 0)
                end += 1
            if depth == 0 and not re.search(r" = |;", code[match.end():end]):
                condition = self.lines[line][match.end():end - 1]
                yield "negate", self._put(line, match.end(), end - 1, f"!({condition})")
        match = QUESTION.match(code)
        if match and "?" not in code and balanced(match.group(1)):
            answer = self.lines[line][slice(*match.span(1))]
            yield "negate", self._put(line, *match.span(1), f"!({answer})")

    def _choices(self, line):
        match = re.search(r" \? (.+?) : (.+?)(?=[;,]|\)*;|$)", self.masked[line])
        if match and balanced(match.group(1)) and balanced(match.group(2)):
            first, second = (self.lines[line][slice(*match.span(part))] for part in (1, 2))
            yield "swap the choices", self._put(line, *match.span(), f" ? {second} : {first}")

    def _statements(self, line):
        end = self._statement_end(line)
        if end is None:
            return
        indent = len(self.masked[line]) - len(self.masked[line].lstrip())
        rest = {other: "" for other in range(line + 1, end + 1)}
        text = " ".join(part.strip() for part in self.masked[line:end + 1])
        if STATEMENT.match(text) and not KEYWORD.match(text):
            yield "drop", {line: " " * indent + ";", **rest}
        leave = self._way_out(line, indent)
        if leave and not text.startswith("return"):
            yield EARLY, {line: " " * indent + leave + " " + self.lines[line].strip()}
        elif leave == "return {};" and not NOTHING.match(text):
            yield "return nothing", {line: " " * indent + leave, **rest}

    def _statement_end(self, line):
        """The last line of the statement that begins in the line, None if none does."""
        before = next((code.strip() for code in reversed(self.masked[:line]) if code.strip()), "")
        if not BEFORE_STATEMENT.search(before):
            return None
        for end in range(line, min(line + 8, len(self.masked))):
            text = "".join(self.masked[line:end + 1])
            if text.endswith(";") and balanced(text):
                return end
        return None

    def _way_out(self, line, indent):
        """The statement that leaves the function in whose outermost block the line stands."""
        opening = line
        while opening and (not self.masked[opening] or self.masked[opening].startswith(" " * indent)):
            opening -= 1
        if self.masked[opening] != " " * (indent - 4) + "{":
            return None
        head = opening
        while head and self.masked[head - 1] and self.masked[head - 1][-1] not in ";}{:":
            head -= 1
        text = " ".join(part.strip() for part in self.masked[head:opening])
        if re.match(r"(class|struct|enum|namespace)\b", text) or "(" not in text:
            return None
        maker = re.match(r"(explicit )?(\w+::)*~?\w+\(", text)
        return "return;" if maker or re.match(r"(static |inline )*void ", text) else "return {};"
