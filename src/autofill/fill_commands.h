#pragma once

// The two auto-fill commands over a library, for both kinds of record.
//
// Group library: a part whose number the group library knows gets group, type, values and
// manufacturer anew, replacing what stood there; everything else stays as it was.
//
// Description parsing: the description of a part whose group is known fills the values that are
// still empty. A value that stands is never touched.
//
// Both leave completed records and records outside of the selection alone, put their mark in the
// notes ("GLib", "Descr"), and let the defaults of group and type fill what is still empty. The
// selection holds part numbers in capitals with the designators that carry them.

#include "autofill/classifier.h"
#include "autofill/group_library.h"
#include "autofill/param_rules.h"
#include "core/library_kind.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace partwright {

/// How a text is put before it is read; the stored text stays as it is.
using TextRewriter = std::function<std::wstring(std::wstring_view)>;

/// What the commands work with; borrowed.
struct FillTools {
    const CPartwrightPlugInApp& app;
    const ParamFiller& filler;
    TextRewriter rewrite;
};

template <class Record>
struct FillReport {
    /// Keys of the records gone through, in key order.
    std::vector<std::wstring> changed;
    /// Those records as they were before, in the same order.
    std::vector<Record> before;
    /// What is to be shown, in the order in which it came up.
    std::vector<std::wstring> messages;
};

/// The Analyses group of a part whose SDTA group is known; 0 when it has none.
[[nodiscard]] std::int32_t analysesGroupOf(const ClassifierTables& tables, std::int32_t sdtaGroup);

FillReport<SdtaComponent> RunGroupLibrary(const FillTools& tools, const Classifier& classifier,
                                          GroupLibrary& groupLibrary,
                                          const PartSelection& selection, SdtaLibrary& library);
/// Records of group 0 are left alone, too.
FillReport<AsrComponent> RunAsrGroupLibrary(const FillTools& tools, const Classifier& classifier,
                                            GroupLibrary& groupLibrary,
                                            const PartSelection& selection, AsrLibrary& library);

FillReport<SdtaComponent> ParseDescriptionsForSelection(const FillTools& tools,
                                                        const PartSelection& selection,
                                                        SdtaLibrary& library);
FillReport<AsrComponent> ParseAsrDescriptionsForSelection(const FillTools& tools,
                                                          const PartSelection& selection,
                                                          AsrLibrary& library);

} // namespace partwright
