"""The tokens of a C++ source, as far as mutants need them."""

import collections
import re

# kind: "name", "number" or "sign". start and end are offsets in the text.
Token = collections.namedtuple("Token", "kind text start end")

# Comments, texts and what the preprocessor reads come first, so that nothing within them is found.
_LEFT_OUT = r"""
    //[^\n]* | /\*.*?\*/
  | ^[ \t]*\#(?:\\\n|[^\n])*
  | (?:u8|[uUL])?R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)"
  | (?:u8|[uUL])?"(?:\\.|[^"\\\n])*"
  | (?:u8|[uUL])?'(?:\\.|[^'\\\n])+'
"""
_NUMBER = r"\.?\d(?:[eEpP][+-]|'?[\w.])*"
_SIGN = r"<<=|>>=|<=>|->\*|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|\S"
_TOKEN = re.compile(
    rf"(?P<left_out>{_LEFT_OUT})|(?P<number>{_NUMBER})|(?P<name>[A-Za-z_]\w*)|(?P<sign>{_SIGN})",
    re.VERBOSE | re.MULTILINE | re.DOTALL)


def tokens_of(text):
    """The tokens in their order, without comments, texts, characters and the preprocessor's lines."""
    return [Token(found.lastgroup, found.group(), found.start(), found.end())
            for found in _TOKEN.finditer(text) if found.lastgroup != "left_out"]


def stands_between_spaces(text, token):
    """Whether a sign is an operator of two values.

    The format that all sources keep puts spaces on both sides of such an operator, and never around
    the brackets of a template or the sign of a pointer or reference.
    """
    return text[token.start - 1:token.start].isspace() and text[token.end:token.end + 1].isspace()
