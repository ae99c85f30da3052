#pragma once

namespace vantrosk {

struct Program;

// The steps of the load stage, in the files that they belong to. Those that can end the process give false.

/// Ends without the version of the audio library that this program was made for, or without a sound device.
bool Check_Audio_Library(Program &program);
/// An update that waits is applied by a program of its own, to which this one makes room.
bool Hand_Over_To_Patch(Program &program);

void Set_Server_Base_Url(Program &program);
void Set_Review_Feed_Url(Program &program);
/// The pages that come with the program and the pictures of its pages, where they are missing.
void Lay_Out_Shipped_Pages(Program &program);
void Cull_Temp_Files(Program &program);
void Fill_Categories(Program &program);
void Settle_Installation_Identity(Program &program);
void Check_Database_Tables(Program &program);

void Show_Tool_Entries(Program &program);
void Set_List_Font(Program &program);
void Restore_Window(Program &program);
void Blank_Browsers(Program &program);
void Build_Lists_And_Menus(Program &program);
void Position_Panels(Program &program);
void Show_Main_Interface(Program &program);
void Warn_About_T3_Saves(Program &program);
void Run_Background_Checks(Program &program);
void Offer_Single_Core(Program &program);

// The steps of the initialisation stage.

void Show_Notices_And_Start_Page(Program &program);
void Show_Notes_Of_The_Start(Program &program);
void Ask_First_Run_Questions(Program &program);

} // namespace vantrosk
