#include "core/application.h"

namespace partwright {

wchar_t CPartwrightPlugInApp::decimalMark() const {
    return decimalPoint.empty() ? L'.' : decimalPoint.front();
}

wchar_t CPartwrightPlugInApp::writtenSeparator() const {
    return decimalMark() == L'.' ? L',' : L';';
}

} // namespace partwright
