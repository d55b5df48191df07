// The first byte picks the table, the rest is its file. It goes through a file in memory, so that
// the whole loader is under test.

#include "core/application.h"
#include "core/paths.h"
#include "fuzz/fuzz_input.h"
#include "library/property_tables.h"
#include "library/small_tables.h"
#include "library/text_table.h"
#include "support/temp_folder.h"

namespace {

using namespace partwright;

struct Loader {
    LoadResult (*load)(CPartwrightPlugInApp&);
    const wchar_t* file;
};
constexpr Loader loaders[] = {
    {[](CPartwrightPlugInApp& app) { return LoadSdtaProperties(app.paths, app.sdta); },
     L"Property_SDTA_Library.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadAsrProperties(app.paths, app.asr); },
     L"Property_ASR_Library.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadColumnVisibility(app.paths, app.asr); },
     L"LibColVisibility_Ext.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadGroupNames(app.paths, app.classifier, app.sdta); },
     L"DescrRules.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadSdtaDefaultLPar(app.paths, app.sdta); },
     L"SDTA_Default_LPar.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadAsrDefaultLPar(app.paths, app.asr); },
     L"ASR_Default_LPar.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadManagementTable(app.paths, app.classifier); },
     L"SDTA_ASR_MGT.csv"},
    {[](CPartwrightPlugInApp& app) { return LoadConvBiCode(app.paths, app.classifier); },
     L"Conv_BiCode.csv"},
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0)
        return 0;
    static const test::TempFolder folder;
    const Loader& loader = loaders[data[0] % std::size(loaders)];
    const std::wstring path = folder.put(loader.file, test::bytesOf(data + 1, size - 1));
    CPartwrightPlugInApp app;
    app.paths.programFolder = folder / L"";
    ResolveFilePaths(app.paths, L"/public");
    test::demand(loader.load(app).status == FileStatus::Ok, "a file that is there is read");
    test::demand(app.asr.groupNames.size() <= 1001 && app.sdta.groupNames.size() <= 1001,
                 "no more groups than codes");
    for (const auto& [code, name] : app.classifier.groupNamesByCode)
        test::demand(code >= 1 && code <= 1000, "codes in range");
    std::int32_t family = 0;
    static_cast<void>(ConvertBiCode(app.classifier, 1, family));
    test::demand(ParseIndexList(decode(test::bytesOf(data, size), CodePage::Windows1252)).size() <=
                     65536,
                 "an index list has bounds");
    std::filesystem::remove(nativePath(path));
    return 0;
}
