#include "core/system_error.h"

#include <cerrno>
#include <string_view>

namespace partwright {

namespace {

struct ErrorText {
    int error;
    std::wstring_view text;
};

constexpr ErrorText errorTexts[] = {
    {ENOSPC, L"There is no space left on the disk"},
#ifdef EDQUOT
    {EDQUOT, L"The disk quota is used up"},
#endif
    {EFBIG, L"The file would be larger than the system allows"},
    {EACCES, L"Access is not permitted"},
    {EPERM, L"The system does not permit it"},
    {EROFS, L"The disk can only be read"},
    {EIO, L"The device reported an error"},
    {EISDIR, L"A folder stands in the place of the file"},
    {ENOENT, L"The file or its folder does not exist"},
    {ENOTDIR, L"A file stands in the place of a folder"},
    {EEXIST, L"There is a file of this name already"},
    {ENAMETOOLONG, L"The name is too long"},
    {ELOOP, L"The links of the path lead in a circle"},
    {EMFILE, L"The program has too many files open"},
    {ENFILE, L"The system has too many files open"},
    {EBUSY, L"The file is in use"},
    {ETXTBSY, L"The file is a program that is running"},
    {EAGAIN, L"The file is in use"},
    {EINTR, L"The work was interrupted again and again"},
    {ENOMEM, L"There is not enough memory"},
    {EPIPE, L"Nobody reads any more"},
    {ETIMEDOUT, L"The device does not answer"},
#ifdef ESTALE
    {ESTALE, L"The file is gone from its server"},
#endif
    {ENODEV, L"There is no such device"},
    {ENXIO, L"There is no such device"},
    {EINVAL, L"The system does not offer this for the file"},
};

} // namespace

std::wstring systemErrorText(int error) {
    for (const ErrorText& known : errorTexts)
        if (known.error == error)
            return std::wstring(known.text);
    return L"The system reported error " + std::to_wstring(error);
}

} // namespace partwright
