// Which text rule fills which parameter, as plain rows.
//
// A row is {family, group, type, rules}: family 14 is the SDTA library, 20 the Analyses library,
// and rules[0] to rules[14] are the rules of LPar1 to LPar15; an empty text is "no rule". A row of
// a key that occurs twice replaces the first one (20/1/1).
//
// A rule is a flat list of terms; the first one that finds something fills the cell. "#V" and the
// like are keys of the unit table. Example: "FUNC1{[#V]},FUNC8{[V]}" reads "50V" and then "5V1".
// A rule without a term ("<Leakage>") only names the nature of a parameter and fills nothing.
//
// How rules are chosen: a column is read in the unit it is kept in, which its property row tells
// (the capacitance of a filter in picofarad and that of a junction in farad, F-Ghz in gigahertz and
// Freq.Range in hertz, inductance in microhenry), and a plain unit fills one column only, the one
// that a text without further words means. The other columns with the same unit wait for their
// marker word ("12 VCB"), and so does every column that asks for a limit where a plain value is
// mostly none: a supply, a clamping voltage, the steady power of a suppressor. Columns that do not
// apply to a type have no rule. No type falls back on a junction temperature, but where the rows of
// circuits, rectifiers and lights always did. Where a text can name a small
// quantity beside the wanted one (a saturation voltage in mV beside the rated volts, a leakage in
// nA beside the rated current), or where only one reading makes sense (an on-resistance in "MOHM"
// is in milliohm), the rule brings its own unit list in place of a key. The dielectric codes of
// T_CAPAdd are read for ceramic capacitors and where they always were: in other styles "10X5MM" is
// a size. g-fs does not use the key SI, whose factors fall where they should rise. Where a case
// size tells nothing about the rating (networks, thermistors, heaters, adjustable resistors), the
// rule leaves it alone.
#pragma once

#include <array>
#include <iterator>
#include <string_view>

namespace partwright {

using ParamRules = std::array<std::wstring_view, 15>;

struct ParamRuleRow {
    int family, group, type;
    std::array<std::wstring_view, 15> rules;
};

// clang-format off
namespace param_rules {

// The long rules that recur.
inline constexpr std::wstring_view PW = L"FUNC3{[FUNC1{[W,mW][1,0.001]}, DEFAULT],[FUNC1{[W,mW][1,0.001]},FUNC_PW{[25][125]}]}";
inline constexpr std::wstring_view RJA = L"FUNC3{[FUNC1{[#Rja]}, DEFAULT],[FUNC1{[#Rja]},FUNC_TETHA{[Rja]}]}";
inline constexpr std::wstring_view RJC = L"FUNC3{[FUNC1{[#Rjc]}, DEFAULT],[FUNC1{[#Rjc]},FUNC_TETHA{[Rjc]}]}";
inline constexpr std::wstring_view TJ = L"FUNC_MAX{[X]},FUNC1{[#T]},FUNC4{[125]}";
inline constexpr std::wstring_view TJ_OPTO = L"FUNC_MAX{[X]},FUNC1{[#T]},FUNC4{[90]}";
inline constexpr std::wstring_view VOLT = L"FUNC1{[#V]},FUNC8{[V]}";
// A rated voltage beside which millivolts or "MV" may stand.
inline constexpr std::wstring_view RATED = L"FUNC1{[Kv,kV,KV,V/,V,v,VOLT,VDC,Vdc,VAC,Vac][1000,1000,1000,1,1,1,1,1,1,1,1]},FUNC8{[V]}";
// Ts is 25 degrees, given for ambient, unless someone knows better.
inline constexpr std::wstring_view TS = L"FUNC4{[25]}";
inline constexpr std::wstring_view AT = L"FUNC4{[1]}";
// ... or for the case, where the text says so of its power
inline constexpr std::wstring_view AT_CASE = L"FUNC3{[AT-CASE,DEFAULT][2,1]}";
// Plain units and markers.
inline constexpr std::wstring_view TEMP = L"FUNC1{[#T]}";
inline constexpr std::wstring_view AMPS = L"FUNC1{[#I]}";
// A current beside which a leakage in uA or nA may stand.
inline constexpr std::wstring_view AMP = L"FUNC1{[A,mA,MA,ma][1,0.001,0.001,0.001]}";
inline constexpr std::wstring_view FREQ = L"FUNC1{[#F]}";
inline constexpr std::wstring_view SRG = L"FUNC1{[#I_SRG]}";
inline constexpr std::wstring_view VREV = L"FUNC1{[#Vr]}";
inline constexpr std::wstring_view CASE_SEM = L"FUNC3{[#CASE_SEM1]}";
inline constexpr std::wstring_view CASE_IC = L"FUNC3{[#CASE_IC1]}";
inline constexpr std::wstring_view PIN_COUNT = L"FUNC_PIN{[CASE]}";
inline constexpr std::wstring_view WATT = L"FUNC1{[#Pw]}";
inline constexpr std::wstring_view WATT_IN = L"FUNC1{[#Pinp_max]},FUNC1{[#Pw]}";
// Resistors: power and voltage by case size, voltage from power and resistance.
inline constexpr std::wstring_view RES_W = L"FUNC1{[#Pw]},FUNC3{[#CASE_RES_W]}";
inline constexpr std::wstring_view RES_V = L"FUNC1{[#V]},FUNC3{[#CASE_RES_V]},FUNC2{[LPar1,LPar4]}";
inline constexpr std::wstring_view RES = L"FUNC1{[#Res]},FUNC3{[#ResZero]},FUNC8{[R]}";
inline constexpr std::wstring_view T_CER = L"FUNC1{[#T]},FUNC3{[#T_CAPAdd]}";
// Small resistances (on, winding, series), where "MOHM" is milliohm.
inline constexpr std::wstring_view LOW_OHM = L"FUNC1{[mohm,mOhm,mOHM,MOHM,ohm,Ohm,OHM][0.001,0.001,0.001,0.001,1,1,1]}";
// What clamps, at the peak pulse current; never a plain voltage, which is the stand-off one.
inline constexpr std::wstring_view V_CLAMP = L"FUNC1{[VCLAMP,Vclamp][1,1]}";
// The steady power beside a pulse power or an output power.
inline constexpr std::wstring_view W_STEADY = L"FUNC1{[WSTEADY,Wsteady][1,1]}";
// What insulation stands, by its own word; and what a plain voltage of a connector is.
inline constexpr std::wstring_view V_DIEL = L"FUNC1{[VDIEL,Vdiel][1,1]}";
inline constexpr std::wstring_view V_WORKING = L"FUNC1{[#Vopr_max]},FUNC1{[kV,KV,V,v,VOLT,VDC,Vdc,VAC,Vac][1000,1000,1,1,1,1,1,1,1]}";
inline constexpr std::wstring_view VSPL = L"FUNC1{[#Vspl_max]}";
// A characteristic impedance or load.
inline constexpr std::wstring_view OHM = L"FUNC1{[ohm,Ohm,OHM][1,1,1]}";
inline constexpr std::wstring_view PICOFARAD = L"FUNC1{[#Cap1]}";
// Farad, of the small capacitances of a junction.
inline constexpr std::wstring_view FARAD = L"FUNC1{[pF,PF,nF,NF][0.000000000001,0.000000000001,0.000000001,0.000000001]}";
inline constexpr std::wstring_view MICROFARAD = L"FUNC1{[#Cap]},FUNC8{[u]}";
// Millisiemens.
inline constexpr std::wstring_view GM = L"FUNC1{[mS,mmhos,S,mhos][1,1,1000,1000]}";
// Hertz, digit by digit: a list of frequencies knows no power of ten.
inline constexpr std::wstring_view FREQ_HZ = L"FUNC_SUBCOMP{[FREQ-HZ][1]}";
inline constexpr std::wstring_view DECIBEL = L"FUNC1{[#dB]}";
// Not applicable to the type; unknown.
inline constexpr std::wstring_view N_A = L"FUNC4{[-2]}";
inline constexpr std::wstring_view UNKNOWN = L"FUNC4{[-1]}";
// Relays: a resistance above one ohm is the coil, below it is the contact.
inline constexpr std::wstring_view R_CONTACT = L"FUNC_IF{[FUNC1{[#Res]},FUNC4{[1]}][<][FUNC1{[#Res]},FUNC4{[-1]}]}";
inline constexpr std::wstring_view R_COIL = L"FUNC_IF{[FUNC1{[#Rcoil]},FUNC4{[1]}][>][FUNC1{[#Rcoil]},FUNC4{[-1]}]}";
// Pins, read from brackets before their name.
inline constexpr std::wstring_view PIN_1 = L"FUNC_SUBCOMP{[#Pin1]}";
inline constexpr std::wstring_view PIN_2 = L"FUNC_SUBCOMP{[#Pin2]}";
inline constexpr std::wstring_view PIN_ANODE = L"FUNC_SUBCOMP{[#Pin-A]}";
inline constexpr std::wstring_view PIN_CATHODE = L"FUNC_SUBCOMP{[#Pin-C]}";
inline constexpr std::wstring_view PIN_THYR_GATE = L"FUNC_SUBCOMP{[#Pin-G]}";
inline constexpr std::wstring_view PIN_COLLECTOR = L"FUNC_SUBCOMP{[#Pin-Collec]}";
inline constexpr std::wstring_view PIN_EMITTER = L"FUNC_SUBCOMP{[#Pin-Emit]}";
inline constexpr std::wstring_view PIN_BASE = L"FUNC_SUBCOMP{[#Pin-Base]}";
inline constexpr std::wstring_view PIN_DRAIN = L"FUNC_SUBCOMP{[#Pin-Drain]}";
inline constexpr std::wstring_view PIN_SOURCE = L"FUNC_SUBCOMP{[#Pin-Source]}";
inline constexpr std::wstring_view PIN_GATE = L"FUNC_SUBCOMP{[#Pin-Gate]}";
inline constexpr std::wstring_view PIN_IN = L"FUNC_SUBCOMP{[#Pin-Inp]}";
inline constexpr std::wstring_view PIN_OUT = L"FUNC_SUBCOMP{[#Pin-Out]}";
inline constexpr std::wstring_view PIN_GND = L"FUNC_SUBCOMP{[#Pin-Gnd]}";
inline constexpr std::wstring_view PIN_VSPL = L"FUNC_SUBCOMP{[#Pin-Vspl]}";
inline constexpr std::wstring_view PIN_COIL_1 = L"FUNC_SUBCOMP{[#Pin-Coil1]}";
inline constexpr std::wstring_view PIN_COIL_2 = L"FUNC_SUBCOMP{[#Pin-Coil2]}";

// Rows, cell by cell under the columns that they fill; "..." means the columns of the row above.
// Package, #PIN, Vspl-Max, Iout-RT, Pw-Max, Oja, Ojc, Tjmax, Fmax, Vspl-Rec
inline constexpr ParamRules digitalIc{CASE_IC, PIN_COUNT, VOLT, AMPS, PW, RJA, RJC, TJ, FREQ, L"FUNC1{[#Vrec_max]}"};
// Package, #PIN, Vspl-Max, Iout-RT, Vinp-RT, Pw-Max, Oja, Ojc, Tjmax, Pinp-max, Vout-RT, Fmax, Iinp-RT
inline constexpr ParamRules linearIc{CASE_IC, PIN_COUNT, VOLT, AMPS, L"FUNC1{[#Vinp_max]}", PW, RJA, RJC, TJ, L"FUNC1{[#Vrec_max]}", L"", FREQ, L"FUNC1{[#Iinp_max]}"};
// ... the other linear types; a plain voltage is what they work at, switch or watch, no limit of theirs
inline constexpr ParamRules linearIcMarked{CASE_IC, PIN_COUNT, VSPL, AMPS, L"FUNC1{[#Vinp_max]}", PW, RJA, RJC, TJ, L"", L"FUNC1{[#Vout_max]}", FREQ, L"FUNC1{[#Iinp_max]}"};
// ... radio-frequency amplifiers
inline constexpr ParamRules rfAmplifierIc{CASE_IC, PIN_COUNT, VSPL, AMPS, L"", PW, RJA, RJC, TJ, L"FUNC1{[#Pinp_max]}", L"FUNC1{[#Vout_max]}", FREQ, L""};
// ... a regulator, whose plain voltage is that of its output
inline constexpr ParamRules regulatorIc{CASE_IC, PIN_COUNT, VSPL, AMPS, L"FUNC1{[#Vinp_max]}", PW, RJA, RJC, TJ, L"", L"FUNC1{[#Vout_max]},FUNC1{[V,v,VOLT,VDC,Vdc,mV][1,1,1,1,1,0.001]},FUNC8{[V]}", FREQ, L"FUNC1{[#Iinp_max]}"};
// ... a reference; the voltage that it gives is no limit
inline constexpr ParamRules referenceIc{CASE_IC, PIN_COUNT, L"", AMPS, L"", PW, RJA, RJC, TJ, L"", L"FUNC1{[#Vout_max]}", L"", L""};
// Pw-RT, Ts, at, Tjmax, Ion-RT or If-RT, Voff-RT or Vr-RT, Package, Oja, Ojc, Isrg-RT
inline constexpr ParamRules thyristorOrRectifier{PW, TS, AT, TJ, AMPS, VOLT, CASE_SEM, RJA, RJC, SRG};
// Pw-RT, Ts, at, Tjmax, Vr-RT, Package, Oja, Ojc, If-RT, Isrg-RT
inline constexpr ParamRules microwaveDiode{PW, TS, AT_CASE, TEMP, RATED, CASE_SEM, RJA, RJC, AMP, SRG};
// Pw-RT, Ts, at, Tjmax, Ipeak-RT, Package, Oja, Ojc, Vpeak-RT, Iz-RT
inline constexpr ParamRules zener{PW, TS, AT_CASE, TEMP, SRG, CASE_SEM, RJA, RJC, L"", AMP};
// ... the plain power and current of a suppressor are those of its pulse
inline constexpr ParamRules suppressor{W_STEADY, TS, AT_CASE, TEMP, L"FUNC1{[#I_SRG]},FUNC1{[kA,KA,A][1000,1000,1]}", CASE_SEM, RJA, RJC, V_CLAMP};
// ... a regulated current may be given in uA
inline constexpr ParamRules currentRegulator{PW, TS, AT_CASE, TEMP, L"", CASE_SEM, RJA, RJC, RATED, AMPS};
// Pw-RT, Ts, at, Tjmax, Ic-RT, Vceo, Package, Oja, Ojc, Ib-RT, Vebo, Vcbo
inline constexpr ParamRules bipolar{PW, TS, AT_CASE, TEMP, L"FUNC1{[#Ic]},FUNC1{[A,mA,MA,ma][1,0.001,0.001,0.001]}", L"FUNC1{[#Vc]},FUNC1{[Kv,kV,KV,V/,V,v,VOLT][1000,1000,1000,1,1,1,1]},FUNC8{[V]}", CASE_SEM, RJA, RJC, L"FUNC1{[#Ib]}", L"FUNC1{[#Veb]}", L"FUNC1{[#Vcb]}"};
// Pw-RT, Ts, at, Tjmax, F-Ghz, Vds-RT, Package, Oja, Ojc, Vgs-RT, Id-RT, Vgd-RT
inline constexpr ParamRules fieldEffect{PW, TS, AT_CASE, TEMP, L"", RATED, CASE_SEM, RJA, RJC, L"FUNC1{[#Vgs]}", AMP, L"FUNC1{[#Vgd]}"};
// ... with a highest frequency
inline constexpr ParamRules rfFieldEffect{PW, TS, AT_CASE, TEMP, L"FUNC1{[#F_GHZ]}", RATED, CASE_SEM, RJA, RJC, L"FUNC1{[#Vgs]}", AMP, L"FUNC1{[#Vgd]}"};
// Pw-Max, If-RT, Tjmax, Package, Oja, Ojc, V-RT, Vce-RT, Ic-RT
inline constexpr ParamRules opto{PW, AMPS, TJ_OPTO, CASE_SEM, RJA, RJC, VOLT};
// ... the plain voltage of a display is its forward voltage, no limit
inline constexpr ParamRules display{PW, AMPS, TJ_OPTO, CASE_SEM, RJA, RJC, VREV};
// ... its plain voltage and current are those of the transistor
inline constexpr ParamRules phototransistor{PW, L"", TJ_OPTO, CASE_SEM, RJA, RJC, L"", L"FUNC1{[#Vc]},FUNC1{[V,v,VOLT][1,1,1]},FUNC8{[V]}", L"FUNC1{[#Ic]},FUNC1{[A,mA,MA,ma][1,0.001,0.001,0.001]}"};
// Pw-RT, V-RT, TMax, Res, I-RT
inline constexpr ParamRules resistor{RES_W, RES_V, TEMP, RES};
// ... with a rated current of its own
inline constexpr ParamRules resistorWithCurrent{RES_W, RES_V, TEMP, RES, AMPS};
// ... the case size of a network or heater says nothing about one element
inline constexpr ParamRules resistorNetwork{WATT, L"FUNC1{[#V]}", TEMP, RES};
// ... adjustable, with a wiper current
inline constexpr ParamRules resistorVariable{WATT, L"FUNC1{[#V]}", TEMP, RES, AMPS};
// ... a thermistor is not rated by its cold resistance
inline constexpr ParamRules thermistor{WATT, RATED, TEMP, RES, AMP};
// ... no voltage ever stands across a jumper
inline constexpr ParamRules jumper{RES_W, L"", TEMP, RES, AMPS};
// V-RT, TMax, Vrev-RT, Isrg-RT, Process
inline constexpr ParamRules capacitor{VOLT, T_CER};
// ... no ceramic
inline constexpr ParamRules capacitorPlain{VOLT, TEMP};
// ... polarised
inline constexpr ParamRules capacitorElectrolytic{VOLT, TEMP, VREV, SRG};
// ... of a named process
inline constexpr ParamRules capacitorCustom{VOLT, T_CER, VREV, SRG, L"FUNC1{[#PROC1]}"};
// V-RT, Isrg-RT, TMax, Pw_rip-RT, Vrev-RT
inline constexpr ParamRules tantalumCsr{L"FUNC1{[V][1]}", SRG, T_CER, L"FUNC1{[#Pw_rip]}", VREV};
// ... the other styles
inline constexpr ParamRules tantalum{VOLT, SRG, TEMP, L"FUNC1{[#Pw_rip]}", VREV};
// I-RT, Vdiel-RT, TMax, Pw-RT, Isrg-RT, Vsrg-RT; plain volts are those of a winding
inline constexpr ParamRules transformer{AMPS, L"FUNC1{[VDIEL,Vdiel,kVrms,KVRMS,Vrms,VRMS][1,1,1000,1000,1,1]}", TEMP, L"FUNC1{[#PwAC]},FUNC1{[#Pw]}", SRG, L"FUNC1{[#Vsrg]}"};
// ... plain volts are what the insulation of the coil is rated for
inline constexpr ParamRules coil{AMPS, L"FUNC1{[VDIEL,Vdiel][1,1]},FUNC1{[kV,KV,V,v,VOLT,VDC,Vdc,VAC,Vac][1000,1000,1,1,1,1,1,1,1]}", TEMP, L"", SRG};
// TMax, InpPw-max, Vspl-Max, Vinp-Max; the power is the drive level
inline constexpr ParamRules crystal{TEMP, L"FUNC1{[#Pinp_max]},FUNC1{[#Pw]},FUNC1{[uW,UW,µW][0.000001,0.000001,0.000001]}"};
// ... plain volts are the nominal supply, no limit
inline constexpr ParamRules oscillator{TEMP, L"", VSPL, L"FUNC1{[#Vinp_max]}"};
// InpPw-max, LO_Pw-max, TMax, V-RT, I-RT
inline constexpr ParamRules lineFilter{L"", L"", TEMP, RATED, AMPS};
// ... with a signal of its own power
inline constexpr ParamRules rfFilter{WATT_IN, L"", TEMP, RATED, AMPS};
// ... without a supply
inline constexpr ParamRules rfPassive{WATT_IN, L"", TEMP};
// ... with a local oscillator
inline constexpr ParamRules mixer{WATT_IN, L"FUNC1{[#PwLO]}", TEMP, L"", AMPS};
// ... with a local oscillator and a supply
inline constexpr ParamRules modulator{WATT_IN, L"FUNC1{[#PwLO]}", TEMP, RATED, AMPS};
// ... with a supply alone
inline constexpr ParamRules levelDetector{WATT_IN, L"", TEMP, RATED};
// I-RT, V-RT, TMax
inline constexpr ParamRules fuse{AMPS, RATED, TEMP};
// V-RT
inline constexpr ParamRules lamp{RATED};
// nothing to read
inline constexpr ParamRules none{};
// Gauge, Vdiel-RT, Icn-RT, TMax, InpPw-max, V-RT
inline constexpr ParamRules rackConnector{L"FUNC1{[#AWG1]}", VOLT, L"FUNC1{[#I]},FUNC3{[#AWG]}", TEMP, L"", L"FUNC1{[#Vopr_max]}"};
// ... the others; a range of gauges is no rating of the contact
inline constexpr ParamRules connector{L"FUNC1{[#AWG1]}", V_DIEL, AMPS, TEMP, L"", V_WORKING};
// ... with a power at its input
inline constexpr ParamRules coaxialConnector{L"", V_DIEL, AMPS, TEMP, WATT_IN, V_WORKING};
// ... without a wire
inline constexpr ParamRules socket{L"", V_DIEL, AMPS, TEMP, L"", V_WORKING};
// Icn-RT, TMax, Isrg-RT, Pw_cont-RT
inline constexpr ParamRules switches{AMPS, TEMP, SRG, L"FUNC1{[#PwAC]},FUNC1{[#Pw]}"};
// ... a breaker
inline constexpr ParamRules breaker{AMPS, TEMP, SRG};
// Icn-RT, Vcoil-RT, TMax; alternating volts are those of the contact
inline constexpr ParamRules relay{AMPS, L"FUNC1{[VCOIL,Vcoil,VDC,Vdc][1,1,1,1]},FUNC1{[V,v,VOLT][1,1,1]},FUNC8{[V]}", TEMP};
// Pw-Max, Hyb-Area, Tjmax; the plain power of a module is what it puts out
inline constexpr ParamRules hybrid{W_STEADY, L"FUNC1{[#Area]}", TEMP};
// The columns below group 10 are former ones; a nature in brackets is no term.
inline constexpr ParamRules asrResistorFormer{L"<num value>", PIN_1, PIN_2};
inline constexpr ParamRules asrResistorNature{L"<num value>", L"{Pin1#24}", L"{Pin2#24}"};
inline constexpr ParamRules asrCapacitorNature{L"<Voltage>", L"<Leakage>", L"{Pin1#24}", L"{Pin2#24}", L"{Num Value,1000000#13}", L"{ESR,1#13}"};
// PinIn, PinOut, PinGnd, .., dB
inline constexpr ParamRules asrAmplifier{PIN_IN, PIN_OUT, PIN_GND, L"", DECIBEL};
// Pin-Out, .., Pin-In(+), Pin-In(-) from LPar6
inline constexpr ParamRules asrOpAmp{L"", L"", L"", L"", L"", PIN_OUT, L"", L"FUNC_SUBCOMP{[In+][1]}", L"FUNC_SUBCOMP{[In-][1]}"};
// PinIn at LPar2, PinOut1 and PinOut2 at LPar6
inline constexpr ParamRules asrTwoOutputs{L"", PIN_IN, L"", L"", L"", L"FUNC_SUBCOMP{[Out1][1]}", L"FUNC_SUBCOMP{[Out2][1]}"};
// Pin-Out at LPar3
inline constexpr ParamRules asrRegulator{L"", L"", PIN_OUT};
// Von, Ion-RT, Pin-A, Pin-C, Pin-G, Vgt, Igt
inline constexpr ParamRules asrThyristor{L"FUNC1{[#Von]}", L"FUNC1{[#Ion]}", PIN_ANODE, PIN_CATHODE, PIN_THYR_GATE, L"FUNC1{[#Vgt]}", L"FUNC1{[#Igt]}"};
// Pw, If, Vr, Ir, Pin-A, Pin-C, Cap
inline constexpr ParamRules asrDiode{WATT, L"FUNC1{[#If]},FUNC1{[A,mA,MA,ma][1,0.001,0.001,0.001]}", L"FUNC1{[#Vr]},FUNC1{[Kv,kV,KV,V/,V,v,VOLT][1000,1000,1000,1,1,1,1]},FUNC8{[V]}", L"FUNC1{[#Ir]}", PIN_ANODE, PIN_CATHODE, FARAD};
// Vz, Zzk, Pin-A, Pin-C, Cap; plain ohms are mostly measured at Izt, not at the knee
inline constexpr ParamRules asrZener{RATED, L"FUNC1{[ZZK,Zzk][1,1]}", PIN_ANODE, PIN_CATHODE, FARAD};
// V-T, Ip, Pin-A, Pin-C
inline constexpr ParamRules asrCurrentRegulator{L"FUNC1{[VT,Vt][1,1]}", AMPS, PIN_ANODE, PIN_CATHODE};
// h-fe, Vbe-sat, Vce-sat, Pin-Collec, Pin-Emit, Pin-Base, Ic, Vbe-lin, Va, Cbe, Cbc
inline constexpr ParamRules asrBipolar{L"FUNC1{[#hfe]}", L"FUNC1{[#Vbe_sat]}", L"FUNC1{[#Vce_sat]}", PIN_COLLECTOR, PIN_EMITTER, PIN_BASE, L"FUNC1{[#Ic]}", L"FUNC4{[0.25]}", UNKNOWN, L"FUNC1{[#Cbe]}", L"FUNC1{[#Cbc]}"};
// g-fs, V-gs(off), Rds(on), Pin-Drain, Pin-Source, Pin-Gate, Vgs(off)-Pol, Ciss, Coss, Crss, Id_at_gm, Va
inline constexpr ParamRules asrMosfet{GM, L"FUNC1{[#Vgs_off]}", LOW_OHM, PIN_DRAIN, PIN_SOURCE, PIN_GATE, L"", L"FUNC1{[#Ciss]}", L"FUNC1{[#Coss]}", L"FUNC1{[#Crss]}", L"FUNC1{[#Id_Oper]}", UNKNOWN};
// ... a junction has no choice of polarity
inline constexpr ParamRules asrJfet{GM, L"FUNC1{[#Vgs_off]}", LOW_OHM, PIN_DRAIN, PIN_SOURCE, PIN_GATE, N_A, L"FUNC1{[#Ciss]}", L"FUNC1{[#Coss]}", L"FUNC1{[#Crss]}", L"FUNC1{[#Id_Oper]}", UNKNOWN};
// Pw, If, Pin-A, Pin-C
inline constexpr ParamRules asrOpto{WATT, L"FUNC1{[#If]},FUNC1{[A,mA,MA,ma][1,0.001,0.001,0.001]}", PIN_ANODE, PIN_CATHODE};
// Pw-In, I-In, Pin-A, Pin-C, Pw-Out, I-Out, Pin-Collec, Pin-Emit, Cin
inline constexpr ParamRules asrIsolator{L"FUNC1{[#Pinp_max]}", L"FUNC1{[#If]}", PIN_ANODE, PIN_CATHODE, L"FUNC1{[#PwOUT]}", L"FUNC1{[#Iout_max]}", PIN_COLLECTOR, PIN_EMITTER, L"FUNC1{[pFin,PFIN][1,1]}"};
// Res, PinR-1, PinR-2
inline constexpr ParamRules asrResistor{RES, PIN_1, PIN_2};
// PinIn, PinOut, PinGnd, Rload, dB
inline constexpr ParamRules asrAttenuator{PIN_IN, PIN_OUT, PIN_GND, L"FUNC1{[#RES_LOAD]},FUNC1{[ohm,Ohm,OHM][1,1,1]}", DECIBEL};
// V-RT, I-Lkg, PinC-1, PinC-2, C, ESR
inline constexpr ParamRules asrCapacitor{VOLT, L"FUNC1{[#I-Lkg]}", PIN_1, PIN_2, MICROFARAD, LOW_OHM};
// Rcoil-S1, PinCo-1-S1, PinCo-2-S1, L, N-S1, IS-S1, Rload, Rcoil-S2, PinCo-1-S2, PinCo-2-S2, N-S2, IS-S2; ohms from five up are the impedance of a bead, not its winding
inline constexpr ParamRules asrCoil{L"FUNC_IF{[FUNC1{[RCOIL,Rcoil,mohm,mOhm,mOHM,MOHM,ohm,Ohm,OHM][1,1,0.001,0.001,0.001,0.001,1,1,1]},FUNC4{[5]}][<][FUNC1{[RCOIL,Rcoil,mohm,mOhm,mOHM,MOHM,ohm,Ohm,OHM][1,1,0.001,0.001,0.001,0.001,1,1,1]},FUNC4{[-1]}]}", PIN_1, PIN_2, L"FUNC1{[#H2uH]}", N_A, N_A, N_A, N_A, N_A, N_A, N_A, N_A};
// ... windings by their own words
inline constexpr ParamRules asrTransformer{L"FUNC1{[#RCOIL1]}", L"FUNC_SUBCOMP{[#Pins_11]}", L"FUNC_SUBCOMP{[#Pins_12]}", L"", L"FUNC1{[#N_S1]}", L"", L"FUNC1{[#RES_LOAD]}", L"FUNC1{[#RCOIL2]}", L"FUNC_SUBCOMP{[PinCo-1-S2][1]}", L"FUNC_SUBCOMP{[PinCo-2-S2][1]}", L"FUNC1{[N-S2][1]}"};
// ... with insertion losses
inline constexpr ParamRules asrRfTransformer{L"FUNC1{[#RCOIL1]}", L"FUNC_SUBCOMP{[#Pins_11]}", L"FUNC_SUBCOMP{[#Pins_12]}", L"", L"FUNC1{[#N_S1]}", L"FUNC1{[#I_S1]}", L"FUNC1{[#RES_LOAD]}", L"FUNC1{[#RCOIL2]}", L"FUNC_SUBCOMP{[PinCo-1-S2][1]}", L"FUNC_SUBCOMP{[PinCo-2-S2][1]}", L"FUNC1{[N-S2][1]}", L"FUNC1{[IS-S2][1]}"};
// ... one section, with the inductance of the primary
inline constexpr ParamRules asrFlyback{L"FUNC1{[#RCOIL1]}", L"FUNC_SUBCOMP{[#Pins_11]}", L"FUNC_SUBCOMP{[#Pins_12]}", L"FUNC1{[#H2uH]}", L"FUNC1{[#N_S1]}"};
// Pin-Vspl+, Pin-Gnd, Pin-Out, Fout, Vout, Icc, Vspl, Sign, Offset, Shape, Delay, ESR; 1 is Positive and Rectangular
inline constexpr ParamRules asrOscillator{PIN_VSPL, PIN_GND, PIN_OUT, FREQ, L"FUNC1{[#Vout]}", AMPS, L"FUNC1{[#Vspl_max]},FUNC1{[V,v,VOLT,VDC,Vdc][1,1,1,1,1]},FUNC8{[V]}", L"FUNC4{[1]}", L"FUNC1{[#Offset]}", L"FUNC3{[SINE,Sine,sine,Sinus,DEFAULT][2,2,2,2,1]}", L"FUNC1{[#Delay]}", N_A};
// ... nothing of it
inline constexpr ParamRules asrCrystal{N_A, N_A, N_A, N_A, N_A, N_A, N_A, L"FUNC4{[1]}", N_A, L"FUNC4{[1]}", N_A, N_A};
// ... a pair of pins, its frequency and loss
inline constexpr ParamRules asrResonator{N_A, N_A, PIN_OUT, FREQ, N_A, N_A, N_A, N_A, N_A, N_A, N_A, L"FUNC1{[kohm,kOhm,kOHM,KOHM,ohm,Ohm,OHM][1000,1000,1000,1000,1,1,1]}"};
// PinIn, PinOut, PinGnd, C, Impedance, dB, SubType, CutoffFreq
inline constexpr ParamRules asrFilter{PIN_IN, PIN_OUT, PIN_GND, PICOFARAD, OHM, DECIBEL};
// ... a capacitor with a shell
inline constexpr ParamRules asrFeedThrough{PIN_IN, PIN_OUT, PIN_GND, PICOFARAD};
// ... with a kind and a corner
inline constexpr ParamRules asrRfFilter{PIN_IN, PIN_OUT, PIN_GND, L"", L"FUNC1{[#Res]}", DECIBEL, L"FUNC3{[LowPass,HighPass,BandPass,BandStop,DEFAULT][1,2,3,4,3]}", L"FUNC_SUBCOMP{[#F]}"};
// PinF-1, PinF-2
inline constexpr ParamRules asrFuse{PIN_1, PIN_2};
// Pw, Vspl, PinLmp-1, PinLmp-2, C
inline constexpr ParamRules asrLamp{WATT, RATED, PIN_1, PIN_2};
// #PIN, Impedance, dB, Freq.Range
inline constexpr ParamRules asrConnector{L"FUNC1{[#PINs]}", N_A, N_A, N_A};
// ... with its wave
inline constexpr ParamRules asrRfConnector{L"FUNC1{[#PINs]}", OHM, DECIBEL, FREQ_HZ};
// Rcont, PinCon-n.1, PinCon-n.2
inline constexpr ParamRules asrSwitch{R_CONTACT, PIN_1, PIN_2};
// Rcoil, Rcont, PinCoil-1, PinCoil-2, PinCon-n.1, PinCon-n.2
inline constexpr ParamRules asrRelay{R_COIL, R_CONTACT, PIN_COIL_1, PIN_COIL_2, PIN_1, PIN_2};
// PinIn and PinOut at LPar7
inline constexpr ParamRules asrConverter{L"", L"", L"", L"", L"", L"", PIN_IN, PIN_OUT};
// PinIn, PinOut, PinGnd, Impedance, dB, Freq.Range; one dB a pin, which a text does not give
inline constexpr ParamRules asrSplitter{PIN_IN, PIN_OUT, PIN_GND, OHM, L"", FREQ_HZ};
// ... a single dB
inline constexpr ParamRules asrCombiner{PIN_IN, PIN_OUT, PIN_GND, OHM, DECIBEL, FREQ_HZ};

} // namespace param_rules

inline constexpr ParamRuleRow paramRuleRows[] = {
    {14, 1, 1, param_rules::digitalIc},
    {14, 1, 2, param_rules::digitalIc},
    {14, 1, 3, param_rules::digitalIc},
    {14, 1, 4, param_rules::digitalIc},
    {14, 1, 5, param_rules::digitalIc},
    {14, 1, 6, param_rules::digitalIc},
    {14, 1, 7, param_rules::digitalIc},
    {14, 1, 8, param_rules::digitalIc},
    {14, 1, 9, param_rules::digitalIc},
    {14, 1, 10, param_rules::digitalIc},
    {14, 1, 11, param_rules::digitalIc},
    {14, 1, 12, param_rules::digitalIc},
    {14, 1, 13, param_rules::digitalIc},
    {14, 1, 14, param_rules::digitalIc},
    {14, 1, 15, param_rules::digitalIc},
    {14, 1, 16, param_rules::digitalIc},
    {14, 2, 1, param_rules::linearIc},
    {14, 2, 2, param_rules::linearIcMarked},
    {14, 2, 3, param_rules::linearIcMarked},
    {14, 2, 4, param_rules::linearIcMarked},
    {14, 2, 5, param_rules::regulatorIc},
    {14, 2, 6, param_rules::regulatorIc},
    {14, 2, 7, param_rules::referenceIc},
    {14, 2, 8, param_rules::referenceIc},
    {14, 2, 9, param_rules::rfAmplifierIc},
    {14, 3, 1, param_rules::thyristorOrRectifier},
    {14, 4, 1, param_rules::thyristorOrRectifier},
    {14, 5, 1, param_rules::microwaveDiode},
    {14, 6, 1, param_rules::zener},
    {14, 6, 2, param_rules::zener},
    {14, 6, 3, param_rules::currentRegulator},
    {14, 6, 4, param_rules::suppressor},
    {14, 6, 5, param_rules::suppressor},
    {14, 7, 1, param_rules::bipolar},
    {14, 7, 2, param_rules::bipolar},
    {14, 7, 3, param_rules::bipolar},
    {14, 7, 4, param_rules::bipolar},
    {14, 7, 5, param_rules::bipolar},
    {14, 8, 1, param_rules::rfFieldEffect},
    {14, 8, 2, param_rules::fieldEffect},
    {14, 8, 3, param_rules::fieldEffect},
    {14, 8, 4, param_rules::fieldEffect},
    {14, 8, 5, param_rules::fieldEffect},
    {14, 8, 6, param_rules::rfFieldEffect},
    {14, 9, 1, param_rules::opto},
    {14, 9, 2, param_rules::opto},
    {14, 9, 3, param_rules::opto},
    {14, 9, 4, param_rules::opto},
    {14, 9, 5, param_rules::display},
    {14, 9, 6, param_rules::display},
    {14, 9, 7, param_rules::opto},
    {14, 9, 8, param_rules::phototransistor},
    {14, 10, 1, param_rules::resistor},
    {14, 10, 2, param_rules::resistor},
    {14, 10, 3, param_rules::resistor},
    {14, 10, 4, param_rules::resistor},
    {14, 10, 5, param_rules::resistor},
    {14, 10, 6, param_rules::resistor},
    {14, 10, 7, param_rules::resistor},
    {14, 10, 8, param_rules::resistor},
    {14, 10, 9, param_rules::resistor},
    {14, 10, 10, param_rules::resistor},
    {14, 10, 11, param_rules::resistor},
    {14, 10, 12, param_rules::resistor},
    {14, 10, 13, param_rules::resistor},
    {14, 10, 14, param_rules::resistorNetwork},
    {14, 10, 15, param_rules::thermistor},
    {14, 10, 16, param_rules::resistorWithCurrent},
    {14, 10, 17, param_rules::resistorVariable},
    {14, 10, 18, param_rules::resistorVariable},
    {14, 10, 19, param_rules::resistorVariable},
    {14, 10, 20, param_rules::resistorVariable},
    {14, 10, 21, param_rules::resistorVariable},
    {14, 10, 22, param_rules::resistorVariable},
    {14, 10, 23, param_rules::resistorVariable},
    {14, 10, 24, param_rules::resistorVariable},
    {14, 10, 25, param_rules::resistorVariable},
    {14, 10, 26, param_rules::resistorVariable},
    {14, 10, 27, param_rules::resistor},
    {14, 10, 28, param_rules::resistor},
    {14, 10, 29, param_rules::resistorNetwork},
    {14, 10, 30, param_rules::resistor},
    {14, 10, 31, param_rules::jumper},
    {14, 10, 32, param_rules::jumper},
    {14, 10, 33, param_rules::resistor},
    {14, 10, 34, param_rules::resistor},
    {14, 10, 35, param_rules::resistor},
    {14, 11, 1, param_rules::capacitor},
    {14, 11, 2, param_rules::capacitorPlain},
    {14, 11, 3, param_rules::capacitor},
    {14, 11, 4, param_rules::capacitor},
    {14, 11, 5, param_rules::capacitorElectrolytic},
    {14, 11, 6, param_rules::capacitorPlain},
    {14, 11, 7, param_rules::capacitorPlain},
    {14, 11, 8, param_rules::capacitorPlain},
    {14, 11, 9, param_rules::capacitor},
    {14, 11, 10, param_rules::capacitor},
    {14, 11, 11, param_rules::capacitorElectrolytic},
    {14, 11, 12, param_rules::capacitorElectrolytic},
    {14, 11, 13, param_rules::capacitorPlain},
    {14, 11, 14, param_rules::capacitorPlain},
    {14, 11, 15, param_rules::capacitorPlain},
    {14, 11, 16, param_rules::capacitorPlain},
    {14, 11, 17, param_rules::capacitorPlain},
    {14, 11, 18, param_rules::capacitorPlain},
    {14, 11, 19, param_rules::capacitorPlain},
    {14, 11, 20, param_rules::capacitorElectrolytic},
    {14, 11, 21, param_rules::capacitorElectrolytic},
    {14, 11, 22, param_rules::capacitorPlain},
    {14, 11, 23, param_rules::capacitorPlain},
    {14, 11, 24, param_rules::capacitorPlain},
    {14, 11, 25, param_rules::capacitorPlain},
    {14, 11, 26, param_rules::capacitorPlain},
    {14, 11, 27, param_rules::capacitor},
    {14, 11, 28, param_rules::capacitorPlain},
    {14, 11, 29, param_rules::capacitorPlain},
    {14, 11, 30, param_rules::capacitorPlain},
    {14, 11, 31, param_rules::capacitorPlain},
    {14, 11, 32, param_rules::capacitor},
    {14, 11, 33, param_rules::capacitorPlain},
    {14, 11, 34, param_rules::capacitor},
    {14, 11, 35, param_rules::capacitorPlain},
    {14, 11, 36, param_rules::capacitorPlain},
    {14, 11, 37, param_rules::capacitor},
    {14, 11, 38, param_rules::capacitorCustom},
    {14, 12, 1, param_rules::tantalumCsr},
    {14, 12, 2, param_rules::tantalum},
    {14, 12, 3, param_rules::tantalum},
    {14, 13, 1, param_rules::transformer},
    {14, 13, 2, param_rules::transformer},
    {14, 13, 3, param_rules::transformer},
    {14, 13, 4, param_rules::coil},
    {14, 13, 5, param_rules::coil},
    {14, 13, 6, param_rules::coil},
    {14, 14, 1, param_rules::crystal},
    {14, 14, 2, param_rules::oscillator},
    {14, 15, 1, param_rules::lineFilter},
    {14, 15, 2, param_rules::rfFilter},
    {14, 15, 3, param_rules::rfPassive},
    {14, 15, 4, param_rules::rfPassive},
    {14, 15, 5, param_rules::mixer},
    {14, 15, 6, param_rules::rfPassive},
    {14, 15, 7, param_rules::lineFilter},
    {14, 15, 8, param_rules::rfPassive},
    {14, 15, 9, param_rules::rfPassive},
    {14, 15, 10, param_rules::rfPassive},
    {14, 15, 11, param_rules::levelDetector},
    {14, 15, 12, param_rules::rfPassive},
    {14, 15, 13, param_rules::modulator},
    {14, 15, 14, param_rules::rfFilter},
    {14, 15, 15, param_rules::rfFilter},
    {14, 15, 16, param_rules::rfFilter},
    {14, 15, 17, param_rules::rfPassive},
    {14, 15, 18, param_rules::rfPassive},
    {14, 16, 1, param_rules::fuse},
    {14, 17, 1, param_rules::lamp},
    {14, 17, 2, param_rules::lamp},
    {14, 18, 1, param_rules::none},
    {14, 19, 1, param_rules::rackConnector},
    {14, 19, 2, param_rules::connector},
    {14, 19, 3, param_rules::coaxialConnector},
    {14, 19, 4, param_rules::connector},
    {14, 19, 5, param_rules::socket},
    {14, 19, 6, param_rules::socket},
    {14, 19, 7, param_rules::connector},
    {14, 19, 8, param_rules::connector},
    {14, 20, 1, param_rules::switches},
    {14, 20, 2, param_rules::switches},
    {14, 20, 3, param_rules::switches},
    {14, 20, 4, param_rules::breaker},
    {14, 20, 5, param_rules::breaker},
    {14, 21, 1, param_rules::relay},
    {14, 21, 2, param_rules::relay},
    {14, 21, 3, param_rules::relay},
    {14, 24, 1, param_rules::hybrid},
    {14, 24, 2, param_rules::hybrid},
    {20, 1, 1, param_rules::asrResistorFormer},
    {20, 1, 1, param_rules::asrResistorNature},
    {20, 1, 2, param_rules::asrResistorNature},
    {20, 1, 3, param_rules::asrResistorNature},
    {20, 1, 4, param_rules::asrResistorNature},
    {20, 1, 5, param_rules::asrResistorNature},
    {20, 1, 6, param_rules::asrResistorNature},
    {20, 1, 7, param_rules::asrResistorNature},
    {20, 1, 8, param_rules::asrResistorNature},
    {20, 1, 9, param_rules::asrResistorNature},
    {20, 1, 10, param_rules::asrResistorNature},
    {20, 1, 11, param_rules::asrResistorNature},
    {20, 1, 12, param_rules::asrResistorNature},
    {20, 1, 13, param_rules::asrResistorNature},
    {20, 1, 14, param_rules::asrResistorNature},
    {20, 1, 15, param_rules::asrResistorNature},
    {20, 1, 16, param_rules::asrResistorNature},
    {20, 1, 17, param_rules::asrResistorNature},
    {20, 1, 18, param_rules::asrResistorNature},
    {20, 1, 19, param_rules::asrResistorNature},
    {20, 2, 1, param_rules::asrCapacitorNature},
    {20, 2, 2, param_rules::asrCapacitorNature},
    {20, 2, 3, param_rules::asrCapacitorNature},
    {20, 2, 4, param_rules::asrCapacitorNature},
    {20, 2, 5, param_rules::asrCapacitorNature},
    {20, 2, 6, param_rules::asrCapacitorNature},
    {20, 2, 7, param_rules::asrCapacitorNature},
    {20, 2, 8, param_rules::asrCapacitorNature},
    {20, 2, 9, param_rules::asrCapacitorNature},
    {20, 2, 10, param_rules::asrCapacitorNature},
    {20, 2, 11, param_rules::asrCapacitorNature},
    {20, 2, 12, param_rules::asrCapacitorNature},
    {20, 2, 13, param_rules::asrCapacitorNature},
    {20, 4, 1, param_rules::none},
    {20, 5, 1, param_rules::asrAmplifier},
    {20, 5, 2, param_rules::asrAmplifier},
    {20, 6, 1, param_rules::asrOpAmp},
    {20, 7, 1, param_rules::asrTwoOutputs},
    {20, 8, 1, param_rules::asrRegulator},
    {20, 8, 2, param_rules::asrRegulator},
    {20, 8, 3, param_rules::asrRegulator},
    {20, 8, 4, param_rules::none},
    {20, 8, 5, param_rules::asrRegulator},
    {20, 8, 6, param_rules::asrRegulator},
    {20, 8, 7, param_rules::asrRegulator},
    {20, 9, 1, param_rules::none},
    {20, 9, 2, param_rules::none},
    {20, 10, 1, param_rules::asrThyristor},
    {20, 11, 1, param_rules::asrDiode},
    {20, 12, 1, param_rules::asrZener},
    {20, 13, 1, param_rules::asrCurrentRegulator},
    {20, 14, 1, param_rules::asrBipolar},
    {20, 15, 1, param_rules::asrBipolar},
    {20, 16, 1, param_rules::asrMosfet},
    {20, 16, 2, param_rules::asrJfet},
    {20, 17, 1, param_rules::asrMosfet},
    {20, 17, 2, param_rules::asrJfet},
    {20, 18, 1, param_rules::asrOpto},
    {20, 19, 1, param_rules::asrIsolator},
    {20, 20, 1, param_rules::none},
    {20, 21, 1, param_rules::asrResistor},
    {20, 22, 1, param_rules::asrAttenuator},
    {20, 22, 2, param_rules::asrAttenuator},
    {20, 23, 1, param_rules::asrCapacitor},
    {20, 23, 2, param_rules::asrCapacitor},
    {20, 24, 1, param_rules::asrCoil},
    {20, 24, 2, param_rules::asrTransformer},
    {20, 24, 3, param_rules::asrRfTransformer},
    {20, 24, 4, param_rules::asrFlyback},
    {20, 25, 1, param_rules::asrOscillator},
    {20, 25, 2, param_rules::asrCrystal},
    {20, 25, 3, param_rules::asrResonator},
    {20, 26, 1, param_rules::asrFilter},
    {20, 26, 2, param_rules::asrFeedThrough},
    {20, 26, 3, param_rules::asrRfFilter},
    {20, 27, 1, param_rules::asrFuse},
    {20, 28, 1, param_rules::asrLamp},
    {20, 30, 1, param_rules::asrConnector},
    {20, 30, 2, param_rules::asrRfConnector},
    {20, 31, 1, param_rules::asrSwitch},
    {20, 32, 1, param_rules::asrRelay},
    {20, 35, 1, param_rules::none},
    {20, 36, 1, param_rules::asrConverter},
    {20, 36, 2, param_rules::asrConverter},
    {20, 38, 1, param_rules::asrSplitter},
    {20, 38, 2, param_rules::asrSplitter},
    {20, 38, 3, param_rules::asrCombiner},
    {20, 38, 4, param_rules::asrCombiner},
    {20, 39, 1, param_rules::none},
};
// clang-format on

static_assert(std::size(paramRuleRows) == 265);

} // namespace partwright
