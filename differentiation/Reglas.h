#pragma once
// The differentiation rules as data: text templates with pending marks
// "@(" ... ")@" where a derivative is still to be worked out. Placeholders:
// {A} the operand before the operator, {B} the one after it, {U} the whole
// sub-expression, {W} a function's argument.

#include <array>
#include <string>
#include <string_view>

// Operator rules, by which operands depend on a variable.
struct ReglaOperador {
  char operador;
  std::string_view ambos, soloA, soloB; // neither depends: "0"
};

inline constexpr std::array<ReglaOperador, 4> kReglasOperador = {{
    {'+', "(@({A})@+@({B})@)", "@({A})@", "@({B})@"},
    {'-', "(@({A})@-@({B})@)", "@({A})@", "-@({B})@"},
    {'*', "({A}*@({B})@+{B}*@({A})@)", "({B}*@({A})@)", "({A}*@({B})@)"},
    {'/', "(({B}*@({A})@-{A}*@({B})@)/{B}^2)", "({B}*@({A})@/{B}^2)", "(-{A}*@({B})@/{B}^2)"},
}};

inline constexpr ReglaOperador kReglaPotencia = {
    '^', "({U}*@({B})@*Ln({A})+{B}*{A}^({B}-1)*@({A})@)", "({B}*{A}^({B}-1)*@({A})@)",
    "({U}*@({B})@*Ln({A}))"};

// One row per function of the language, by name in upper case. Secant,
// cosecant and cotangent (and their hyperbolic forms) are rewritten as
// reciprocals and left pending whole; SinH and CosH become exponentials.
struct ReglaFuncionDato {
  std::string_view nombre, plantilla;
};

inline constexpr std::array<ReglaFuncionDato, 26> kReglasFuncion = {{
    {"LOG", "(@({W})@/(Ln(10)*({W})))"},
    {"LN", "(@({W})@/({W}))"},
    {"SIN", "(@({W})@*Cos({W}))"},
    {"COS", "(-@({W})@*Sin({W}))"},
    {"TG", "(@({W})@/Cos({W})^2)"},
    {"SEC", "@(1/Cos({W}))@"},
    {"COSEC", "@(1/Sin({W}))@"},
    {"CTG", "@(1/Tg({W}))@"},
    {"ARCSIN", "(@({W})@/(1-({W})^2)^(1/2))"},
    {"ARCCOS", "(-@({W})@/(1-({W})^2)^(1/2))"},
    {"ARCTG", "(@({W})@/(1+({W})^2))"},
    {"ARCSEC", "(@({W})@/(({W})*(({W})^2-1)^(1/2)))"},
    {"ARCCOSEC", "(-@({W})@/(({W})*(({W})^2-1)^(1/2)))"},
    {"ARCCTG", "(-@({W})@/(1+({W})^2))"},
    {"SINH", "(@({W})@*(e^({W})+e^-({W}))/2)"},
    {"COSH", "(@({W})@*(e^({W})-e^-({W}))/2)"},
    {"TGH", "@(SinH({W})/CosH({W}))@"},
    {"SECH", "@(1/CosH({W}))@"},
    {"COSECH", "@(1/SinH({W}))@"},
    {"CTGH", "@(1/TgH({W}))@"},
    {"ARCSINH", "(@({W})@/(1+({W})^2)^(1/2))"},
    {"ARCCOSH", "(@({W})@/(({W})^2-1)^(1/2))"},
    {"ARCTGH", "(@({W})@/(1-({W})^2))"},
    {"ARCSECH", "(-@({W})@/(({W})*(1-({W})^2)^(1/2)))"},
    {"ARCCOSECH", "(-@({W})@/(({W})*(1+({W})^2)^(1/2)))"},
    {"ARCCTGH", "(-@({W})@/(({W})^2-1))"},
}};

// The template with its placeholders replaced.
std::string Rellena(std::string_view plantilla, std::string_view a, std::string_view b,
                    std::string_view u);
