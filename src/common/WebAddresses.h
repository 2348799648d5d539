#pragma once

// Every web address that the program opens or shows.
namespace web {
inline constexpr char Home[] = "https://parlune.example/";
inline constexpr char Setup[] = "https://parlune.example/setup";
inline constexpr char ScriptingTool[] = "https://parlune.example/scripting";
inline constexpr char AgentRing[] = "https://parlune.example/agent-ring";
inline constexpr char Characters[] = "https://parlune.example/characters";
inline constexpr char SpeechEngines[] = "https://parlune.example/speech-engines";
}
