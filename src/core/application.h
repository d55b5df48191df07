#pragma once

// The application object: the one owner of all tables and all libraries of a run, made before
// start-up and passed to whoever needs it. It is a handful of values, and who needs one of them
// only is handed that one, so that a signature tells what may be touched:
//
//   paths        where files stand, and the project's name        ProjectPaths
//   partList     the project's parts                              PartList
//   sdta, asr    groups, types and parameters of either kind      Definitions<Record>
//   classifier   how a part finds its group and type              ClassifierTables
//   libraries    the records, the links to data sheets, faults    Libraries
//
// The definitions of a kind have one set of names: what the tables call sdtaGroupNames and
// asrGroupNames is sdta.groupNames and asr.groupNames, FindSdtaPropertyRow is sdta.FindPropertyRow.
// Code that serves both kinds asks of<Record>(). The compiled and prepared tables of the auto-fill
// engine belong to the engine itself (autofill/).

#include "core/classifier_tables.h"
#include "core/definitions.h"
#include "core/libraries.h"
#include "core/part_list.h"
#include "core/project_paths.h"

#include <cstdint>
#include <string>
#include <type_traits>

namespace partwright {

class CPartwrightPlugInApp {
public:
    /// Decimal mark of the user's locale; it also picks the separator of written libraries.
    std::wstring decimalPoint = L".";
    /// What the command line says of the window.
    std::int32_t startPage = 0;
    std::int32_t analysisLevel = 0;

    ProjectPaths paths;
    PartList partList;
    Definitions<SdtaComponent> sdta;
    Definitions<AsrComponent> asr;
    ClassifierTables classifier;
    Libraries libraries;

    template <class Record>
    [[nodiscard]] Definitions<Record>& of() {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return sdta;
        else
            return asr;
    }
    template <class Record>
    [[nodiscard]] const Definitions<Record>& of() const {
        if constexpr (std::is_same_v<Record, SdtaComponent>)
            return sdta;
        else
            return asr;
    }

    [[nodiscard]] wchar_t decimalMark() const;
    /// "," when the decimal mark is ".", otherwise ";".
    [[nodiscard]] wchar_t writtenSeparator() const;
};

} // namespace partwright
