#include "core/paths.h"

#include "core/encoding.h"
#include "core/settings.h"
#include "core/text_file.h"

#include <filesystem>
#include <system_error>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

#include <array>
#else
#include <langinfo.h>
#include <locale.h>
#endif

namespace partwright {

namespace {

std::size_t lastSeparator(std::wstring_view path) {
    std::size_t at = path.size();
    while (at > 0 && !isPathSeparator(path[at - 1]))
        --at;
    return at == 0 ? std::wstring_view::npos : at - 1;
}

std::wstring join(std::wstring_view folder, std::wstring_view file) {
    return withSeparator(folder) + std::wstring(file);
}

} // namespace

bool isPathSeparator(wchar_t c) {
    return c == L'/' || c == L'\\';
}

std::wstring withSeparator(std::wstring_view folder) {
    std::wstring result(folder);
    if (!result.empty() && !isPathSeparator(result.back()))
        result += pathSeparator;
    return result;
}

std::wstring asFolder(std::wstring_view path) {
    std::error_code ignored;
    return std::filesystem::is_directory(nativePath(path), ignored) ? withSeparator(path)
                                                                    : std::wstring(path);
}

std::wstring programPath() {
#ifdef _WIN32
    std::wstring buffer(32768, L'\0');
    const DWORD size =
        GetModuleFileNameW(nullptr, buffer.data(), static_cast<DWORD>(buffer.size()));
    buffer.resize(size);
    return buffer;
#else
    std::error_code error;
    const std::filesystem::path path = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::wstring() : pathText(path);
#endif
}

std::wstring programFolderFor(std::wstring_view program, std::int32_t hostTool) {
    const auto file = lastSeparator(program);
    if (file == std::wstring_view::npos)
        return std::wstring(program);
    const std::wstring_view own = program.substr(0, file + 1);
    if (hostTool == 3)
        return std::wstring(own);
    const auto parent = lastSeparator(own.substr(0, file));
    if (parent == std::wstring_view::npos)
        return std::wstring(own);
    std::wstring folder(own.substr(0, parent + 1));
    if (hostTool == 2)
        folder += std::wstring(L"ComServ_Dorvane") + pathSeparator;
    return folder;
}

void ResolveFilePaths(ProjectPaths& paths, std::wstring_view publicFolder) {
    const std::wstring& tables = paths.programFolder;
    paths.sdtaPropertyPath = tables + L"Property_SDTA.csv";
    paths.sdtaPropertyLibraryPath = tables + L"Property_SDTA_Library.csv";
    paths.sdtaValidationRulesPath = tables + L"SDTALibraryValidationRules.csv";
    paths.sdtaThermalValidationPath = tables + L"SDTALibThermalParamValidation.csv";
    paths.descrRulesPath = tables + L"DescrRules.csv";
    paths.descrRulesSdtaTypesPath = tables + L"DescrRules_SDTATypes.csv";
    paths.groupLibraryPath = tables + L"GLibData.glb";
    paths.managementTablePath = tables + L"SDTA_ASR_MGT.csv";
    paths.sdtaDefaultLParPath = tables + L"SDTA_Default_LPar.csv";

    paths.publicLibraryFolder = publicFolder;
    if (paths.publicLibraryFolder.empty())
        static_cast<void>(ReadRegistryValue(paths.hostTool, RegistryOperation::Read,
                                            paths.publicLibraryFolder, L"Settings", L"PLibPath"));
    if (paths.publicLibraryFolder.empty())
        paths.publicLibraryFolder = tables + L"Morlith_PLib";
    paths.publicSdtaLibraryPath = join(paths.publicLibraryFolder, L"SDTALib_Public.csv");
    paths.publicAsrLibraryPath = join(paths.publicLibraryFolder, L"AnalysesLib_Public.csv");
    paths.sdtaLibraryPath = join(paths.libraryFolder, L"SDTALib_" + paths.projectName + L".csv");
    ResolveAnalysesFilePaths(paths);
}

void ResolveAnalysesFilePaths(ProjectPaths& paths) {
    paths.asrLibraryPath = join(paths.libraryFolder, L"AnalysesLib_" + paths.projectName + L".csv");
    paths.asrPropertyLibraryPath = paths.programFolder + L"Property_ASR_Library.csv";
    paths.asrDefaultLParPath = paths.programFolder + L"ASR_Default_LPar.csv";
}

std::wstring localeDecimalPoint() {
#ifdef _WIN32
    std::array<wchar_t, 8> mark{};
    const int size = GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, LOCALE_SDECIMAL, mark.data(),
                                     static_cast<int>(mark.size()));
    return size > 1 ? std::wstring(mark.data()) : L".";
#else
    // Only the category of numbers: another one that is not installed must not change the mark.
    const locale_t numbers = ::newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (numbers == nullptr)
        return L"."; // the environment names a locale that is not installed
    std::wstring mark = decodeLossy(::nl_langinfo_l(RADIXCHAR, numbers));
    ::freelocale(numbers);
    return mark.empty() ? L"." : mark;
#endif
}

} // namespace partwright
