#pragma once

// Classification of parts: group and type from designators and description. One prepared object a
// load of the tables; see group_detector.h and type_detector.h for the rules.
//
//   const Classifier classifier(app.classifier, keywords, units);
//   std::int32_t group = classifier.DetectGroup(L"R1", description, false);
//   std::int32_t type = 0;
//   classifier.DetectType(14, group, description, type);

#include "autofill/group_detector.h"
#include "autofill/type_detector.h"

namespace partwright {

class Classifier {
public:
    Classifier(const ClassifierTables& tables, const TypeKeywords& keywords, const UnitTable& units)
        : groups_(tables), types_(tables, keywords, units) {}

    [[nodiscard]] std::int32_t DetectGroup(std::wstring_view refDesList,
                                           std::wstring_view description, bool byName) const {
        return groups_.DetectGroup(refDesList, description, byName);
    }
    [[nodiscard]] std::int32_t DetectGroupByWords(std::wstring_view description) const {
        return groups_.DetectGroupByWords(description);
    }
    void DetectType(std::int32_t family, std::int32_t& group, std::wstring_view description,
                    std::int32_t& type) const {
        types_.DetectType(family, group, description, type);
    }

private:
    GroupDetector groups_;
    TypeDetector types_;
};

} // namespace partwright
