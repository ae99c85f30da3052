#pragma once

#include <QString>

namespace vantrosk {

struct Program;
struct Plugin_Tool;

/// Windows forgets the video codec of the Dark Engine games now and then; registering it anew helps. The row
/// that stands for that among the tools:
inline constexpr const char *codec_fix_name = "VKVIDFIX";
inline constexpr const char *codec_fix_exe = "Vantrosk_Video_Fix.bat";

/// Whether the tool is the fix: by the name of its batch file, or by the codec's own.
bool Is_codec_fix(const Plugin_Tool &tool);
/// Registers the codec of the first game that has it, as the button does; tells when it is done.
void Re_Register_Codec(Program &program);
/// The same at the start of a game. A system without codecs only pauses.
void Fix_codec_at_launch(Program &program);
/// Adds or removes the row. Throws `Program_Error`.
void Set_Codec_Fix_At_Launch(Program &program, bool wanted);

} // namespace vantrosk
