#pragma once

// Signs of life of long work. How long work takes is not known beforehand, so it only says that it
// goes on; short work leaves no trace.

namespace partwright {

class Progress {
public:
    Progress() = default;
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;
    virtual ~Progress() = default;

    /// One more part has been worked on.
    virtual void step() = 0;
    /// The work is done.
    virtual void finish() = 0;
};

} // namespace partwright
