#include "grid/tab_text.h"

namespace partwright::grid {

namespace {

bool needsQuotes(const QString& text) {
    return text.startsWith(u'"') || text.contains(u'\t') || text.contains(u'\n') ||
           text.contains(u'\r');
}

/// The text in quotation marks that starts at `at`, if its closing mark ends the cell; `at` then
/// stands behind that mark.
bool readQuoted(const QString& text, qsizetype& at, QString& cell) {
    QString inner;
    for (qsizetype i = at + 1; i < text.size(); ++i) {
        if (text[i] != u'"') {
            inner += text[i];
        } else if (i + 1 < text.size() && text[i + 1] == u'"') {
            inner += u'"';
            ++i;
        } else {
            const bool closes = i + 1 == text.size() || text[i + 1] == u'\t' ||
                                text[i + 1] == u'\n' || text[i + 1] == u'\r';
            if (closes) {
                at = i + 1;
                cell = inner;
            }
            return closes;
        }
    }
    return false;
}

} // namespace

QString toTabText(const TextTable& table) {
    QString result;
    for (const auto& row : table) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i != 0)
                result += u'\t';
            if (needsQuotes(row[i])) {
                QString inner = row[i];
                inner.replace(QStringLiteral("\""), QStringLiteral("\"\""));
                result += u'"' + inner + u'"';
            } else {
                result += row[i];
            }
        }
        result += u'\n';
    }
    return result;
}

TextTable fromTabText(const QString& text) {
    TextTable table;
    qsizetype at = 0;
    bool rowOpen = false;
    while (at < text.size() || rowOpen) {
        if (!rowOpen)
            table.emplace_back();
        rowOpen = false;
        QString cell;
        if (at >= text.size() || text[at] != u'"' || !readQuoted(text, at, cell)) {
            const qsizetype start = at;
            while (at < text.size() && text[at] != u'\t' && text[at] != u'\n' && text[at] != u'\r')
                ++at;
            cell = text.sliced(start, at - start);
        }
        table.back().push_back(cell);
        if (at >= text.size())
            break;
        if (text[at] == u'\t') {
            rowOpen = true;
        } else if (text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n') {
            ++at;
        }
        ++at;
    }
    return table;
}

} // namespace partwright::grid
