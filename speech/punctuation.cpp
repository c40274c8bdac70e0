#include "speech/punctuation.h"

namespace quillmere {

namespace {

const char* NameOf(char c) {
  switch (c) {
    case ' ':
      return "space";
    case '.':
      return "dot";  // the program's own word for a point
    case ',':
      return "comma";
    case ':':
      return "colon";
    case ';':
      return "semicolon";
    case '/':
      return "slash";
    case '\\':
      return "backslash";
    case '-':
      return "minus";
    case '+':
      return "plus";
    case '*':
      return "star";
    case '=':
      return "equals";
    case '_':
      return "underscore";
    case '\'':
      return "apostrophe";
    case '"':
      return "quote";
    case '`':
      return "grave";
    case '!':
      return "exclamation mark";
    case '?':
      return "question mark";
    case '(':
      return "left parenthesis";
    case ')':
      return "right parenthesis";
    case '[':
      return "left bracket";
    case ']':
      return "right bracket";
    case '{':
      return "left brace";
    case '}':
      return "right brace";
    case '<':
      return "less than";
    case '>':
      return "greater than";
    case '#':
      return "number sign";
    case '%':
      return "percent";
    case '&':
      return "ampersand";
    case '@':
      return "at";
    case '$':
      return "dollar";
    case '^':
      return "caret";
    case '|':
      return "bar";
    case '~':
      return "tilde";
    case '\t':
      return "tab";
    default:
      return nullptr;
  }
}

}  // namespace

std::string PronouncePunctuation(const std::string& text) {
  std::string out;
  bool word = false;  // the last thing written was a name
  for (char c : text) {
    if (const char* name = NameOf(c)) {
      out += ' ';
      out += name;
      word = true;
    } else {
      if (word) out += ' ';
      out += c;
      word = false;
    }
  }
  if (!text.empty() && NameOf(text[0])) out.erase(0, 1);
  return out;
}

}  // namespace quillmere
