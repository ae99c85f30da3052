#pragma once

namespace vantrosk {

// Files that the program makes for the selected mission and removes when it ends.

inline constexpr const char *rtf_text_name = "temprtf.txt"; ///< the text of an RTF readme
inline constexpr const char *rtf_page_name = "temprtf.htm"; ///< the page of that text
inline constexpr const char *competition_page_name = "Competitionform.htm";
inline constexpr const char *feedback_page_name = "Feedbackform.htm";

} // namespace vantrosk
