// classify and describe: one line in, one JSON object out, in constant memory.

#include "cli/commands.h"
#include "cli/project.h"
#include "core/encoding.h"

#include <nlohmann/json.hpp>

#include <istream>
#include <ostream>

namespace partwright::cli {

namespace {

using Json = nlohmann::ordered_json;

/// The two fields of a line; the second one is empty when there is no tab.
struct Fields {
    std::wstring first;
    std::wstring second;
};

Fields fieldsOf(std::string_view line) {
    if (!line.empty() && line.back() == '\r')
        line.remove_suffix(1);
    const auto tab = line.find('\t');
    if (tab == std::string_view::npos)
        return {decodeLossy(line), {}};
    return {decodeLossy(line.substr(0, tab)), decodeLossy(line.substr(tab + 1))};
}

template <class Record>
void addPart(Json& answer, const CPartwrightPlugInApp& app, const FilledPart& part) {
    const auto [groupName, typeName] =
        app.of<Record>().GroupAndTypeNames(part.found.group, part.found.type);
    answer["group"] = part.found.group;
    answer["groupName"] = encodeUtf8(groupName);
    answer["type"] = part.found.type;
    answer["typeName"] = encodeUtf8(typeName);
    Json& values = answer["LPar"] = Json::object();
    const Names columns = Kind<Record>::columns(part.found.group);
    for (std::size_t i = 0; i < columns.size() && i < part.cells.size(); ++i)
        if (!part.cells[i].empty())
            values[encodeUtf8(columns[i])] = encodeUtf8(part.cells[i]);
    answer["notes"] = encodeUtf8(part.notes);
}

/// Calls `answer` for each line and prints what it makes.
template <class Answer>
int answerLines(const ConsolePrompt& prompt, Streams streams, Answer answer) {
    std::string line;
    while (streams.out && std::getline(streams.in, line))
        streams.out << answer(fieldsOf(line)).dump() << '\n';
    return prompt.unreadable() || streams.in.bad() ? Usage : Fine;
}

} // namespace

int runClassify(const PlaceOptions& place, const LineOptions& options, Streams streams) {
    Tables tables(place, streams);
    return answerLines(tables.prompt, streams, [&](const Fields& fields) {
        Json answer = {{"refdes", encodeUtf8(fields.first)},
                       {"description", encodeUtf8(fields.second)}};
        if (options.analyses)
            addPart<AsrComponent>(answer, tables.app,
                                  tables.engine.fill<AsrComponent>(fields.first, fields.second));
        else
            addPart<SdtaComponent>(answer, tables.app,
                                   tables.engine.fill<SdtaComponent>(fields.first, fields.second));
        return answer;
    });
}

int runDescribe(const PlaceOptions& place, const LineOptions& options, Streams streams) {
    Tables tables(place, streams);
    return answerLines(tables.prompt, streams, [&](const Fields& fields) {
        const PartDescription part = tables.engine.describe(fields.first);
        for (const std::wstring& text : part.messages)
            tables.prompt.tell(text, PromptIcon::None);
        Json answer = {{"partNumber", encodeUtf8(fields.first)},
                       {"description", encodeUtf8(part.description)},
                       {"manufacturer", encodeUtf8(part.manufacturer)},
                       {"rule", part.rule}};
        if (options.fill && options.analyses)
            addPart<AsrComponent>(
                answer, tables.app,
                tables.engine.fillByWords<AsrComponent>(fields.second, part.description));
        else if (options.fill)
            addPart<SdtaComponent>(
                answer, tables.app,
                tables.engine.fillByWords<SdtaComponent>(fields.second, part.description));
        return answer;
    });
}

} // namespace partwright::cli
