#include "core/regular_expression_program.h"

#include <utility>

namespace partwright::regex {

namespace {

/// Recurses into groups only, whose nesting the validity check limits.
class Compiler {
public:
    explicit Compiler(const Tree& tree) : tree_(tree) {}

    Program compile() {
        node(tree_.root);
        append(Operation::Accept);
        program_.sets = tree_.sets;
        program_.groups = static_cast<std::uint32_t>(tree_.groups);
        program_.hasBackReference = tree_.hasBackReference;
        countSorts();
        return std::move(program_);
    }

private:
    [[nodiscard]] std::uint32_t here() const {
        return static_cast<std::uint32_t>(program_.code.size());
    }
    std::uint32_t append(Operation operation, std::uint32_t index = 0) {
        Instruction instruction;
        instruction.operation = operation;
        instruction.index = index;
        program_.code.push_back(instruction);
        return here() - 1;
    }

    void node(std::int32_t number) {
        const Node& it = tree_.at(number);
        const auto index = static_cast<std::uint32_t>(it.index);
        switch (it.kind) {
        case NodeKind::Set:
            append(Operation::Set, index);
            break;
        case NodeKind::Sequence:
            for (const auto child : it.children)
                node(child);
            break;
        case NodeKind::Alternatives:
            alternatives(it);
            break;
        case NodeKind::Group:
            group(it, index);
            break;
        case NodeKind::Repeat:
            repeat(it);
            break;
        case NodeKind::LineBegin:
            append(Operation::LineBegin);
            break;
        case NodeKind::LineEnd:
            append(Operation::LineEnd);
            break;
        case NodeKind::WordBoundary:
            append(Operation::WordBoundary);
            break;
        case NodeKind::NoWordBoundary:
            append(Operation::NoWordBoundary);
            break;
        case NodeKind::LookAhead:
        case NodeKind::NegativeLookAhead:
            lookAhead(it);
            break;
        case NodeKind::BackReference:
            append(Operation::BackReference, index);
            break;
        }
    }

    void alternatives(const Node& it) {
        std::vector<std::uint32_t> jumps;
        for (std::size_t i = 0; i < it.children.size(); ++i) {
            const bool last = i + 1 == it.children.size();
            const auto split = last ? 0 : append(Operation::Split);
            node(it.children[i]);
            if (!last) {
                jumps.push_back(append(Operation::Jump));
                program_.code[split].x = split + 1;
                program_.code[split].y = here();
            }
        }
        for (const auto jump : jumps)
            program_.code[jump].x = here();
    }

    void group(const Node& it, std::uint32_t index) {
        const bool captures = tree_.hasBackReference && index > 0;
        if (captures)
            append(Operation::GroupBegin, index);
        node(it.children.front());
        if (captures)
            append(Operation::GroupEnd, index);
    }

    void repeat(const Node& it) {
        const auto begin = here();
        node(it.children.front());
        for (const Quantifier& quantifier : it.quantifiers)
            repeat(begin, quantifier);
    }

    /// Repeats what was compiled from `begin` on.
    void repeat(std::uint32_t begin, const Quantifier& quantifier) {
        if (quantifier.required == 1 && quantifier.optional < 0) {
            endChoice(append(Operation::Repeat), begin, quantifier.lazy);
            return;
        }
        const std::vector<Instruction> body(program_.code.begin() + begin, program_.code.end());
        program_.code.resize(begin);
        std::uint32_t last = begin;
        for (std::int64_t i = 0; i < quantifier.required; ++i) {
            last = here();
            appendCopy(body, begin);
        }
        if (quantifier.optional < 0) {
            const auto choice = append(Operation::Repeat);
            if (quantifier.required == 0) {
                last = here();
                appendCopy(body, begin);
                program_.code[append(Operation::Jump)].x = choice;
            }
            endChoice(choice, last, quantifier.lazy);
            return;
        }
        std::vector<std::uint32_t> choices;
        for (std::int64_t i = 0; i < quantifier.optional; ++i) {
            choices.push_back(append(Operation::Repeat));
            appendCopy(body, begin);
        }
        for (const auto choice : choices)
            endChoice(choice, choice + 1, quantifier.lazy);
    }

    void endChoice(std::uint32_t choice, std::uint32_t onceMore, bool lazy) {
        program_.code[choice].x = onceMore;
        program_.code[choice].y = here();
        program_.code[choice].lazy = lazy;
    }

    /// `body` was compiled to stand at `begin`.
    void appendCopy(const std::vector<Instruction>& body, std::uint32_t begin) {
        const std::uint32_t offset = here() - begin;
        for (Instruction it : body) {
            it.x += offset;
            it.y += offset;
            program_.code.push_back(it);
        }
    }

    void lookAhead(const Node& it) {
        const auto look = append(it.kind == NodeKind::LookAhead ? Operation::LookAhead
                                                                : Operation::NegativeLookAhead);
        node(it.children.front());
        append(Operation::Accept);
        program_.code[look].y = here();
    }

    void countSorts() {
        for (Instruction& it : program_.code) {
            if (it.operation == Operation::Split || it.operation == Operation::Repeat)
                it.index = program_.choices++;
            else if (it.operation == Operation::LookAhead ||
                     it.operation == Operation::NegativeLookAhead)
                it.index = program_.lookAheads++;
        }
    }

    const Tree& tree_;
    Program program_;
};

} // namespace

Program compile(const Tree& tree) {
    return Compiler(tree).compile();
}

} // namespace partwright::regex
