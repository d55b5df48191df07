#pragma once

// The two kinds of library side by side. Code that serves both is a template over the record type
// and asks Kind<Record> for what differs; this page is the whole difference in numbers, names and
// members of the application object.

#include "core/application.h"
#include "core/vocabulary.h"

#include <cstdint>
#include <string_view>

namespace partwright {

template <class Record>
struct Kind;

template <>
struct Kind<SdtaComponent> {
    using Record = SdtaComponent;
    using Row = SdtaPropertyRow;
    using Library = SdtaLibrary;

    static constexpr std::wstring_view name = L"SDTA";
    /// Number of this kind's numbering of groups in the rule tables.
    static constexpr std::int32_t method = 14;
    static constexpr std::size_t maximumColumns = 14;
    /// Cells that the auto-fill engine works on, and how many of them a record takes over.
    static constexpr std::size_t fillCells = 24;
    static constexpr std::size_t takenCells = 14;
    static constexpr std::int32_t lastGroup = lastSdtaGroup;

    static Names columns(std::int32_t group) { return ColumnsOfSdtaGroup(group); }
    static std::wstring_view family(std::int32_t group) { return FamilyOfSdtaGroup(group); }

    template <class App>
    static auto& properties(App& app) {
        return app.sdtaProperties;
    }
    template <class App>
    static auto& groupNames(App& app) {
        return app.sdtaGroupNames;
    }
    template <class App>
    static auto& groupTypes(App& app) {
        return app.sdtaGroupTypes;
    }
    template <class App>
    static auto& defaultTypes(App& app) {
        return app.sdtaDefaultTypes;
    }
    template <class App>
    static auto& defaultLPar(App& app) {
        return app.sdtaDefaultLPar;
    }
    template <class App>
    static auto& designLibrary(App& app) {
        return app.sdtaDesignLibrary;
    }
    template <class App>
    static auto& publicLibrary(App& app) {
        return app.sdtaPublicLibrary;
    }
    template <class App>
    static auto& designPath(App& app) {
        return app.sdtaLibraryPath;
    }
    template <class App>
    static auto& publicPath(App& app) {
        return app.publicSdtaLibraryPath;
    }
};

template <>
struct Kind<AsrComponent> {
    using Record = AsrComponent;
    using Row = AsrPropertyRow;
    using Library = AsrLibrary;

    static constexpr std::wstring_view name = L"Analyses";
    static constexpr std::int32_t method = 20;
    static constexpr std::size_t maximumColumns = 24;
    static constexpr std::size_t fillCells = 26;
    static constexpr std::size_t takenCells = 26;
    static constexpr std::int32_t lastGroup = lastAsrGroup;

    static Names columns(std::int32_t group) { return ColumnsOfAsrGroup(group); }
    static std::wstring_view family(std::int32_t group) { return FamilyOfAsrGroup(group); }

    template <class App>
    static auto& properties(App& app) {
        return app.asrProperties;
    }
    template <class App>
    static auto& groupNames(App& app) {
        return app.asrGroupNames;
    }
    template <class App>
    static auto& groupTypes(App& app) {
        return app.asrGroupTypes;
    }
    template <class App>
    static auto& defaultTypes(App& app) {
        return app.asrDefaultTypes;
    }
    template <class App>
    static auto& defaultLPar(App& app) {
        return app.asrDefaultLPar;
    }
    template <class App>
    static auto& designLibrary(App& app) {
        return app.asrDesignLibrary;
    }
    template <class App>
    static auto& publicLibrary(App& app) {
        return app.asrPublicLibrary;
    }
    template <class App>
    static auto& designPath(App& app) {
        return app.asrLibraryPath;
    }
    template <class App>
    static auto& publicPath(App& app) {
        return app.publicAsrLibraryPath;
    }
};

/// (group name, type name): "Not defined" and "Default" for what is out of range.
template <class Record>
[[nodiscard]] std::pair<std::wstring_view, std::wstring_view>
namesOf(const CPartwrightPlugInApp& app, std::int32_t group, std::int32_t type) {
    const auto& names = Kind<Record>::groupNames(app);
    if (group < 0 || static_cast<std::size_t>(group) >= names.size())
        return {notDefinedName, defaultTypeName};
    const std::wstring_view groupName = names[static_cast<std::size_t>(group)];
    const auto types = Kind<Record>::groupTypes(app).find(groupName);
    if (types == Kind<Record>::groupTypes(app).end() || type < 0 ||
        static_cast<std::size_t>(type) >= types->second.size())
        return {groupName, defaultTypeName};
    return {groupName, types->second[static_cast<std::size_t>(type)].name};
}

/// The property row that serves a pair of names; null when none does.
template <class Record>
[[nodiscard]] const typename Kind<Record>::Row*
findRow(const CPartwrightPlugInApp& app, std::wstring_view groupName, std::wstring_view typeName);

extern template const SdtaPropertyRow* findRow<SdtaComponent>(const CPartwrightPlugInApp&,
                                                              std::wstring_view, std::wstring_view);
extern template const AsrPropertyRow* findRow<AsrComponent>(const CPartwrightPlugInApp&,
                                                            std::wstring_view, std::wstring_view);

} // namespace partwright
