#include "library/queries/sql_text.h"

#include "core/text.h"
#include "platform/paths.h"

#include <algorithm>
#include <cctype>

namespace vk {

namespace {

bool IsWordByte(char byte) {
    return std::isalnum(static_cast<unsigned char>(byte)) || byte == '_';
}

/// Copies a query piece by piece.
class Translator {
  public:
    explicit Translator(std::string_view sql) : sql_(sql) {}

    std::string Translate() {
        while (at_ < sql_.size()) {
            if (sql_[at_] == '\'' || sql_[at_] == '"')
                TakeLiteral(sql_[at_]);
            else if (IsWordByte(sql_[at_]))
                TakeWord();
            else
                result_ += sql_[at_++];
        }
        if (!limit_.empty()) {
            result_.erase(result_.find_last_not_of("; \t\r\n") + 1);
            result_ += " LIMIT " + limit_;
        }
        return std::move(result_);
    }

  private:
    void TakeLiteral(char quote) {
        std::string value;
        for (++at_; at_ < sql_.size(); ++at_) {
            if (sql_[at_] == quote && (at_ + 1 == sql_.size() || sql_[at_ + 1] != quote)) break;
            if (sql_[at_] == quote) ++at_; // doubled: the quote itself
            value += sql_[at_];
        }
        at_ = std::min(at_ + 1, sql_.size());
        if (quote == '"') value = ReplaceAll(value, "'", "\"");
        result_ += "'" + ReplaceAll(OfPlatform(value), "'", "''") + "'";
    }

    std::string OfPlatform(const std::string& value) const {
        const bool ofPath = EqualNoCase(column_, "Path") || EqualNoCase(column_, "ParentDir");
        if (!ofPath || value.find(PathSeparator) != std::string::npos) return value;
        return ReplaceAll(value, "\\", std::string(1, PathSeparator));
    }

    void TakeWord() {
        const std::string word = NextWord();
        if (EqualNoCase(previous_, "SELECT") && EqualNoCase(word, "TOP") && TakeTop()) return;
        const bool operatorWord = EqualNoCase(word, "LIKE") || EqualNoCase(word, "NOT");
        if (!operatorWord) column_ = word;
        previous_ = word;
        result_ += word;
    }

    std::string NextWord() {
        const std::size_t start = at_;
        while (at_ < sql_.size() && IsWordByte(sql_[at_]))
            ++at_;
        return std::string(sql_.substr(start, at_ - start));
    }

    /// The number after TOP becomes the limit; false, with nothing taken, when there is none.
    bool TakeTop() {
        const std::size_t after = at_;
        at_ = std::min(sql_.find_first_not_of(' ', at_), sql_.size());
        const std::string number = NextWord();
        const bool valid = ParseInteger(number).has_value() && limit_.empty();
        if (valid)
            limit_ = number;
        else
            at_ = after;
        return valid;
    }

    std::string_view sql_;
    std::size_t at_ = 0;
    std::string result_, limit_;
    std::string column_;   ///< the last word that can be a column's name
    std::string previous_; ///< the last word
};

} // namespace

std::string Escape(std::string_view text) {
    std::string value = Trim(text);
    std::erase(value, '\0');
    return ReplaceAll(std::move(value), "'", "\"");
}

std::string Unescape(std::string_view text) {
    return ReplaceAll(Trim(text), "\"", "'");
}

std::string TranslateQuery(std::string_view sql) {
    return Translator(sql).Translate();
}

} // namespace vk
