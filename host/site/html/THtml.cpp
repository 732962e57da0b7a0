#include "THtml.h"

#include "TText.h"

namespace NZELVYR20 {
namespace {

void AppendMasked(std::string& html, const std::string& text) {
  for (const char letter : text) {
    switch (letter) {
      case '&':
        html += "&amp;";
        break;
      case '<':
        html += "&lt;";
        break;
      case '>':
        html += "&gt;";
        break;
      case '"':
        html += "&quot;";
        break;
      case '\'':
        html += "&#39;";
        break;
      default:
        html += letter;
    }
  }
}

}  // namespace

void THtml::Begin(const char* name, const TAttributes& attributes) {
  text_ += '<';
  text_ += name;
  for (const auto& [attribute, value] : attributes) {
    text_ += ' ';
    text_ += attribute;
    text_ += "=\"";
    AppendMasked(text_, TText::OneLine(value));
    text_ += '"';
  }
}

void THtml::Open(const char* name, const TAttributes& attributes) {
  Begin(name, attributes);
  text_ += '>';
  open_.push_back(name);
}

void THtml::Close() {
  text_ += "</";
  text_ += open_.back();
  text_ += '>';
  open_.pop_back();
}

void THtml::Text(const std::string& text) { AppendMasked(text_, TText::Printable(text)); }

void THtml::Add(const char* name, const std::string& text, const TAttributes& attributes) {
  Open(name, attributes);
  Text(text);
  Close();
}

void THtml::AddEmpty(const char* name, const TAttributes& attributes) {
  Begin(name, attributes);
  text_ += "/>";
}

void THtml::AddLink(const std::string& url, const std::string& text, TAttributes attributes) {
  if (url.empty()) return Text(text);
  attributes.insert(attributes.begin(), {"href", url});
  Add("a", text, attributes);
}

std::string THtml::Finish() {
  while (!open_.empty()) Close();
  return std::move(text_);
}

}  // namespace NZELVYR20
