#pragma once

// A prompt whose boxes are foretold: each box that comes must be the next one, and at the end none
// may be left over.

#include "core/messages.h"
#include "core/ports/prompt.h"

#include <gtest/gtest.h>

#include <deque>
#include <string>
#include <string_view>

namespace partwright::test {

class ScriptedPrompt final : public Prompt {
public:
    ~ScriptedPrompt() override {
        for (const Expected& box : boxes_)
            ADD_FAILURE() << "box never came: " << narrow(box.text);
    }

    void expect(std::wstring_view text, PromptIcon icon = PromptIcon::None,
                PromptAnswer answer = PromptAnswer::Ok) {
        boxes_.push_back({std::wstring(message::caption), std::wstring(text), icon, answer});
    }
    void expectQuestion(std::wstring_view text, PromptAnswer answer,
                        std::wstring_view title = message::caption) {
        expect(text, PromptIcon::Warning, answer);
        boxes_.back().title = title;
    }

    PromptAnswer show(std::wstring_view title, std::wstring_view text, PromptIcon icon,
                      PromptButtons buttons) override {
        if (boxes_.empty()) {
            ADD_FAILURE() << "surprising box: " << narrow(text);
            return PromptAnswer::No;
        }
        const Expected box = boxes_.front();
        boxes_.pop_front();
        EXPECT_EQ(narrow(title), narrow(box.title));
        EXPECT_EQ(narrow(text), narrow(box.text));
        EXPECT_EQ(icon, box.icon) << narrow(text);
        EXPECT_EQ(buttons == PromptButtons::Ok, box.answer == PromptAnswer::Ok) << narrow(text);
        return box.answer;
    }

    static std::string narrow(std::wstring_view text) {
        std::string result;
        for (const wchar_t c : text)
            result += c < 128 ? static_cast<char>(c) : '?';
        return result;
    }

private:
    struct Expected {
        std::wstring title;
        std::wstring text;
        PromptIcon icon;
        PromptAnswer answer;
    };
    std::deque<Expected> boxes_;
};

} // namespace partwright::test
