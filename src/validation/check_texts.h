#pragma once

// The words of the coded checks of the Analyses library, in one place. Arguments are typed: a text
// that a user typed is put into a message and is never a format.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace partwright::check_text {

using Text = std::wstring_view;

// --- Lists
inline constexpr Text pinOrder = L"Wrong dash separators order!";
inline constexpr Text valueOrder = L"Wrong dash separators order.";
inline constexpr Text pointOrder = L"Wrong decimal points order.";
inline constexpr Text separatorPosition = L"Wrong 'dash' separators position.";
inline constexpr Text separatorCount = L"Wrong 'dash' separators count.";
[[nodiscard]] std::wstring illegalCharacter(wchar_t character);
[[nodiscard]] std::wstring illegalSeparator(wchar_t character);

// --- Cells of single groups
inline constexpr Text regulatorOutput = L"Value '-' is wrong for Pin-Out of Voltage Regulator.";
inline constexpr Text regulatorOutputInRow =
    L"Wrong Pin-Out value of Voltage Regulator in the selected row:\nit cannot be defined as '-'.";
inline constexpr Text outputAboveSupply = L"Vout value can not be greater than Vspl value.";
inline constexpr Text oneAmplifierInput = L"Only one input pin is allowed for type Amplifier.";
inline constexpr Text connectorFrequencies =
    L"For type \"Connector_RF\" Frequency Range entry should be made in the following formats:\n"
    L"\"-\", or Fmin - Fmax, where Fmin < Fmax, or Fmax.";
[[nodiscard]] std::wstring outputPair(Text type);

inline constexpr Text duplicateNames = L"Pin names should be unique, you cannot duplicate them.";
inline constexpr Text onePinGround = L"You should enter at least 1 pin ground.";
/// `pins` is what the type asks for, the end of the sentence.
[[nodiscard]] std::wstring splitterPins(Text type, Text pins);
inline constexpr Text oneInput = L"one input pin.";
inline constexpr Text twoInputs = L"2 input pins.";
inline constexpr Text inputsFromTwo = L"at least 2 input pins.";
inline constexpr Text oneOutput = L"1 output pin.";
inline constexpr Text outputsFromTwo = L"at least 2 output pins.";
inline constexpr Text threeOutputs = L"at least 3 output pins.";

/// `request` follows the name of the type.
[[nodiscard]] std::wstring filterPins(Text request);
inline constexpr Text filterInput = L"you should enter PinIn value";
inline constexpr Text filterOutput = L"you should enter PinOut value";
inline constexpr Text filterWithoutDash = L"you should enter PinIn and PinOut values without \"-\"";
inline constexpr Text filterGround = L"you should enter PinGnd value";
inline constexpr Text filterGroundItems = L"you should enter some ground pins separated by \"-\"";
inline constexpr Text feedThroughCounts =
    L"For this type of filter, the number of components in columns PinIn, PinOut and PinGnd must "
    L"be the same.";

// --- Frequencies and decibels, with the place of the cell at their end
[[nodiscard]] std::wstring atCell(Text message, std::size_t row, std::size_t column);
inline constexpr Text wrongFormat = L"Value is wrong formatted.";
inline constexpr Text oneOrTwoFrequencies =
    L"Number of frequency values should be equals to 1 or 2.";
inline constexpr Text firstFrequency = L"First frequency value should be more than 0.";
inline constexpr Text twoFrequencies = L"Number of frequency values should not be less than 2.";
inline constexpr Text ascendingFrequencies =
    L"Frequency values should be placed in ascending order.";
inline constexpr Text oneFrequency = L"Number of frequency values should be equals to 1.";
inline constexpr Text secondFrequency = L"Second frequency value should be more than first one.";

inline constexpr Text outOfRange = L"Out of range!";
inline constexpr Text emptyItem = L"Wrong 'dash' separators order!";
inline constexpr Text singleDb = L"For this type you should input single value of dB or \"-\".";
inline constexpr Text emptyOutputs = L"Output  pin cell is empty!";
inline constexpr Text emptyInputs = L"Input  pin cell is empty!";
inline constexpr Text outputsAgainstDb =
    L"Output  pin quantity does not correspond to quantity of DB values!";
inline constexpr Text threeDbValues = L"Number of DB values should be equal to 3";
[[nodiscard]] std::wstring dbBelow(double bound, wchar_t mark);
[[nodiscard]] std::wstring singleDbBelow(double bound, wchar_t mark);
[[nodiscard]] std::wstring thirdDb(double third, double each, wchar_t mark);
[[nodiscard]] std::wstring secondAndThirdDb(double each, wchar_t mark);

// --- Passes over the rows
[[nodiscard]] std::wstring ofMethod(Text method, Text message);
[[nodiscard]] std::wstring quantityMustBeEqual(Text columns);
inline constexpr Text maximumOutputUndefined =
    L"Vout-Max parameter definition error in the selected row :\nIf PinOut is defined (is not "
    L"'-'), Vout-Max also has to be defined !\n";
inline constexpr Text outputUndefined =
    L"PinOut definition error in the selected row :\nIf Vout-Max is defined (is not '-'), PinOut "
    L"also has to be defined!";
inline constexpr Text outputResistance =
    L"Rout parameter definition error in the selected row :\nIf Vout parameter is not defined (is "
    L"'-'), Rout also has to be '-'!";
inline constexpr Text equalPair =
    L"For each subcomponent, a pair of pins must contain different pin numbers.";
[[nodiscard]] std::wstring delayTooLong(double delay, wchar_t mark);

inline constexpr Text transformerParameters =
    L"Parameters error in the selected row:\nType 'Transformer' needs at least 2 parameters Rcoil, "
    L"Pin_Co1, Pin_Co2 and N\n(1 for primary and 1 for secondary winding).";
inline constexpr Text firstSectionPins =
    L"Wrong Pins definition in the selected row :\nDifferent pin quantity in the Pin-Co1-S1 and "
    L"Pin-Co2-S1 columns.";
inline constexpr Text secondSectionPins =
    L"Wrong pins definition in the selected row :\nDifferent pin quantity in the Pin-Co1-S2 and "
    L"Pin-Co2-S2 columns.";
inline constexpr Text pairInBothSections =
    L"Wrong pins definition in the selected row :\nIt is found pin pair coincidence in both "
    L"sections of transformer.";
[[nodiscard]] std::wstring repeatedPins(Text first, Text second);
[[nodiscard]] std::wstring sectionDbQuantity(std::size_t section, Text type);
[[nodiscard]] std::wstring sectionDbSum(std::size_t section);

inline constexpr Text dbQuantity =
    L"dB parameters quantity does not equal to Pin-Out quantity\nin the selected row.";
inline constexpr Text dbZero = L"The value dB = 0 in the selected row is wrong.";
[[nodiscard]] std::wstring dbBelowSplit(double value, std::size_t outputs, wchar_t mark);
[[nodiscard]] std::wstring dbSum(std::size_t values);

inline constexpr Text duplicatePins = L"Pin Number duplication in the selected rows.";
inline constexpr Text relayPins =
    L"Pin Number duplication in the selected rows:\nCoil Pins must differ from Channel Pins or one "
    L"from another.";
inline constexpr Text supplyOutput =
    L"PinVsplOut value can't be '-' when PinVspl value is multipin!\n";
[[nodiscard]] std::wstring inRow(std::size_t row, Text message);
[[nodiscard]] std::wstring supplyDuplicate(Text field);
inline constexpr Text supplyShared =
    L"Pin Numbers used in each of the fields \"PinVspl+\", \"PinGnd\", \"PinVspl-\" should not be "
    L"duplicated in other these fields.";
inline constexpr Text supplyAsSignal =
    L"Unique Pin Numbers in fields \"PinVspl+\", \"PinGnd\", \"PinVspl-\" cannot be used for "
    L"\"PinIn\" and \"PinOut\".";

} // namespace partwright::check_text
