#include "core/application.h"
#include "core/messages.h"
#include "editing/open_datasheet.h"
#include "support/recording_opener.h"
#include "support/scripted_prompt.h"
#include "support/temp_folder.h"

#include <gtest/gtest.h>

namespace partwright::test {

TEST(OpenDatasheet, OpensTheFileOrTellsWhatIsMissing) {
    const TempFolder folder;
    const std::wstring file = folder.put(L"sheets/passive/R 1.pdf", "%PDF-1.4");
    CPartwrightPlugInApp app;
    RecordingOpener opener;
    const std::wstring sheets = folder / L"sheets";

    struct Case {
        std::wstring folder;
        std::wstring link;
        std::wstring box;
        bool opens;
    };
    const Case cases[] = {
        {L"", L"", L"", false},
        {L"", L"a.pdf", L"Path to Datasheet Directory is not defined.", false},
        {sheets + L"-gone", L"a.pdf",
         L"Defined Path to Datasheet Directory \"" + sheets + L"-gone\" does not exist.", false},
        {file, L"a.pdf", L"Defined Path to Datasheet Directory \"" + file + L"\" does not exist.",
         false},
        {sheets, L"a.pdf", L"File \"" + sheets + L"/a.pdf\" does not exist.", false},
        {sheets, L"passive", L"File \"" + sheets + L"/passive\" does not exist.", false},
        {sheets, L"passive\\R 1.pdf", L"", true},
        {sheets, L"passive/../../x.pdf",
         L"The link \"passive/../../x.pdf\" leads out of the folder of data sheets.", false},
        {sheets, L"..\\x.pdf", L"The link \"..\\x.pdf\" leads out of the folder of data sheets.",
         false},
        {sheets + L"/", L"passive/R 1.pdf", L"", true},
    };
    for (const Case& one : cases) {
        ScriptedPrompt prompt;
        if (!one.box.empty())
            prompt.expect(one.box, PromptIcon::Warning);
        app.paths.datasheetFolder = one.folder;
        opener.opened.clear();
        OpenDatasheet(app.paths, one.link, prompt, opener);
        EXPECT_EQ(opener.opened,
                  one.opens ? std::vector<std::wstring>{file} : std::vector<std::wstring>{});
    }

    opener.answer = false;
    ScriptedPrompt prompt;
    prompt.expect(message::noProgramToOpen(file), PromptIcon::Warning);
    OpenDatasheet(app.paths, L"passive/R 1.pdf", prompt, opener);
}

} // namespace partwright::test
