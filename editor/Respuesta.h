#pragma once
// The answers to a Yes/No/Cancel question, whoever asks it: the replace
// command of the document model, or a window's message box.

enum class Respuesta { Si, No, Cancelar };
