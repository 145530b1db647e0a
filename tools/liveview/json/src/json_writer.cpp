#include "json_writer.h"

#include "common_utils.h"

#include <cstdio>

#include "utf8.h"

namespace LiveViewJson {

namespace {

const char* const REPLACEMENT = "\xEF\xBF\xBD";  // U+FFFD
const char* const LINE_SEPARATOR = "\xE2\x80\xA8";
const char* const PARAGRAPH_SEPARATOR = "\xE2\x80\xA9";
constexpr size_t SEPARATOR_BYTES = 3;

class Writer {
public:
    Writer(int indent, std::string& out) : indent_(indent), out_(out) {}

    void Write(const JsonValue& value, int depth) {
        switch (value.Kind()) {
            case JsonKind::NUL:
                out_ += "null";
                return;
            case JsonKind::BOOLEAN:
                out_ += value.IsTrue() ? "true" : "false";
                return;
            case JsonKind::NUMBER:
                out_ += value.Text();
                return;
            case JsonKind::STRING:
                AppendJsonString(value.Text(), out_);
                return;
            case JsonKind::ARRAY:
                Container('[', ']', value.Items(), depth,
                          [this](const JsonValue& item, int in) { Write(item, in); });
                return;
            case JsonKind::OBJECT:
                Container('{', '}', value.Members(), depth, [this](const JsonMember& m, int in) {
                    AppendJsonString(m.name, out_);
                    out_ += indent_ > 0 ? ": " : ":";
                    Write(m.value, in);
                });
                return;
        }
    }

private:
    template <typename Child, typename WriteChild>
    void Container(char open, char close, const std::vector<Child>& children, int depth,
                   WriteChild writeChild) {
        out_ += open;
        for (size_t i = 0; i < children.size(); ++i) {
            if (i > 0) {
                out_ += ',';
            }
            NewLine(depth + 1);
            writeChild(children[i], depth + 1);
        }
        if (!children.empty()) {
            NewLine(depth);
        }
        out_ += close;
    }

    void NewLine(int depth) {
        if (indent_ > 0) {
            out_ += '\n';
            out_.append(static_cast<size_t>(depth) * static_cast<size_t>(indent_), ' ');
        }
    }

    int indent_;
    std::string& out_;
};

}  // namespace

void AppendJsonString(const std::string& text, std::string& out) {
    out += '"';
    for (size_t i = 0; i < text.size();) {
        const auto c = static_cast<unsigned char>(text[i]);
        if (c < 0x20 || c == '"' || c == '\\') {
            Tavi::Wisp::LiveView::CommonUtils::AppendJsonEscaped(static_cast<char>(c), out);
            ++i;
        } else if (c < 0x80) {
            out += static_cast<char>(c);
            ++i;
        } else if (text.compare(i, SEPARATOR_BYTES, LINE_SEPARATOR) == 0) {
            out += "\\u2028";
            i += SEPARATOR_BYTES;
        } else if (text.compare(i, SEPARATOR_BYTES, PARAGRAPH_SEPARATOR) == 0) {
            out += "\\u2029";
            i += SEPARATOR_BYTES;
        } else if (const size_t length = Utf8SequenceLength(text, i)) {
            out.append(text, i, length);
            i += length;
        } else {
            out += REPLACEMENT;
            ++i;
        }
    }
    out += '"';
}

std::string WriteJson(const JsonValue& value, int indent) {
    std::string out;
    Writer(indent, out).Write(value, 0);
    return out;
}

}  // namespace LiveViewJson
