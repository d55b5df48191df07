// The first byte picks one of the four tables of classification, the lines behind it are its file,
// and the last line is a description that is read by it. Prepared and plain forms must agree.

#include "autofill/classifier.h"
#include "autofill/literal_classifier.h"
#include "autofill/synonyms.h"
#include "core/encoding.h"
#include "core/paths.h"
#include "fuzz/fuzz_input.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "support/temp_folder.h"

namespace {

using namespace partwright;

const UnitTable& units() {
    struct Row {
        std::wstring_view key, name, value;
    };
    static constexpr Row rows[] = {{L"Pw", L"W", L"1"}, {L"V", L"V", L"1"}};
    static const UnitTable table(rows);
    return table;
}

// The expressions one by one: the standard library's matching would overflow on some of these.
std::int32_t groupOneByOne(const CPartwrightPlugInApp& app, const std::wstring& description) {
    const std::wstring upper = upperCase(description);
    const auto matches = [&upper](const std::wstring& text) {
        return ValidateRegularExpression(text) &&
               RegularExpression(upperCase(text)).fullMatch(upper);
    };
    for (const auto& [code, rule] : app.classifier.GroupRuleTable) {
        const auto typical = app.classifier.GroupRefDesTable.find(code);
        if (typical == app.classifier.GroupRefDesTable.end() || !matches(rule.rules) ||
            (!rule.excluding.empty() && matches(rule.excluding)))
            continue;
        for (const auto piece : split(typical->second, L','))
            if (upperCase(trim(piece)) == L"R")
                return code;
    }
    return 0;
}

void groups(CPartwrightPlugInApp& app, const std::wstring& description) {
    LoadGroupNames(app.paths, app.classifier, app.sdta);
    app.classifier.groupNamesByCode.clear();
    test::demand(GroupDetector(app.classifier).DetectGroup(L"R1", description, true) ==
                     groupOneByOne(app, description),
                 "the set answers as its members");
    static_cast<void>(GroupDetector(app.classifier).DetectGroup(description, description, false));
}

void types(CPartwrightPlugInApp& app, const std::wstring& description) {
    LoadManagementTable(app.paths, app.classifier);
    TypeKeywords keywords;
    LoadTypeKeywords(app.paths, keywords);
    test::demand(keywords.typeKeywordMaxLength <= 255, "keywords are cut");
    const TypeDetector detector(app.classifier, keywords, units());
    test::LiteralClassifier literal(app, keywords, units());
    for (const std::int32_t group : {1, 10}) {
        std::int32_t fastGroup = group;
        std::int32_t slowGroup = group;
        std::int32_t fastType = 0;
        std::int32_t slowType = 0;
        detector.DetectType(14, fastGroup, description, fastType);
        literal.DetectType(14, slowGroup, description, slowType);
        test::demand(fastGroup == slowGroup && fastType == slowType,
                     "the prepared form answers as the literal one");
    }
}

void synonyms(const CPartwrightPlugInApp& app, const std::wstring& description) {
    SynonymTable table;
    LoadSynonyms(app.paths, table);
    const std::wstring result = table.rewrite(description);
    const bool untouched =
        table.size() + table.prefixes().size() == 0 || description.empty() || description == L"-";
    test::demand(untouched ? result == description : result.starts_with(L' '),
                 "a rewritten text begins with a blank");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static const test::TempFolder folder;
    static constexpr const wchar_t* files[] = {L"DescrRules.csv", L"DescrRules_SDTATypes.csv",
                                               L"SDTA_ASR_MGT.csv", L"DescrSynonyms.csv",
                                               L"PartPrefixes.csv"};
    const std::size_t kind = data[0] % std::size(files);
    const std::string bytes = test::bytesOf(data + 1, size - 1);
    const auto lastLine = bytes.rfind('\n');
    const std::wstring description =
        lastLine == std::string::npos ? L"RES 1K" : decodeLossy(bytes.substr(lastLine + 1));
    const std::wstring path = folder.put(files[kind], bytes.substr(0, lastLine));
    CPartwrightPlugInApp app;
    app.paths.programFolder = folder / L"";
    ResolveFilePaths(app.paths, L"/public");
    if (kind == 0)
        groups(app, description);
    else if (kind >= 3)
        synonyms(app, description);
    else
        types(app, description);
    std::filesystem::remove(nativePath(path));
    return 0;
}
