#include "play/GeneralMidi.h"

#include <iterator>

namespace corvane {
namespace {

constexpr std::string_view kNames[] = {
"Acou Piano", "Bright Grand", "Elect Grand", "Hony Tonk",
"Rhodes", "Chorus Piano", "Harpshicord", "Clavinet",
"Celeste", "Glockenspiel", "Music Box", "Vibraphone",
"Marimba", "Xylophone", "Tubular Bells", "Dulcimer",
"Hamnd Organ", "Perc Organ", "Rock Organ", "ChurchOrgan",
"Piano&Vibes", "Accordion", "Harmonica", "TangoAccord",
"AcNylonGuit", "AcSteelguit", "ElecJazzGuit", "ElecCleanGuit",
"ElecMuteGuit", "OvrdriveGuit", "DistortedGuit", "GuitHarmonix",
"AcousticBass", "ElecBassFingr", "ElecBassPick", "FretlessBass",
"SlapBass", "SlapBass 2", "Synth Bass 1", "Synth Bass 2",
"Violin", "Viola", "Cello", "Contrabass",
"TremloString", "Pizz String", "Orchst Harp", "Timpani",
"Str Ensmbl 1", "Str Ensmbl 2", "SnthString 1", "SnthString 2",
"Choir Ahhs", "Voice Oohs", "Synth Voice", "Orch Hit",
"Trumpet", "Trombone", "Tuba", "MuteTrumpt",
"French Horn", "BrassSection", "Snth Brass 1", "Snth Brass 2",
"Soprano Sax", "Alto Sax", "Tenor Sax", "Baritone Sax",
"Oboe", "English Horn", "Bassoon", "Clarinet",
"Piccolo", "Flute", "Recorder", "Pan Flute",
"Bottle Blow", "Shakuhachi", "Whistle", "Ocarina",
"Square Wave", "SawTooth", "Caliope", "Chiff Lead",
"Charang", "SoloSyntVx", "Brite Saw", "Brass&Lead",
"FantasiaPad", "Warm Pad", "PolySnthPad", "SpaceVoxPad",
"BowdGlasPad", "MetalPad", "Halo Pad", "Sweep Pad",
"Ice Rain", "Soundtrack", "Crystal", "Atmosphere",
"Brightness", "Goblin", "Echo Drops", "Star Theme",
"Sitar", "Banjo", "Shamisen", "Koto",
"Kalimba", "Bagpipe", "Fiddle", "Shanai",
"Tinkle Bell", "Agogo", "Steel Drums", "Woodblock",
"Taiko Drums", "Melodic Tom", "Synth Drum", "RevrsCymbl",
"GuitFretNois", "Breath Noise", "Seashore", "Bird Tweet",
"Phone Ring", "Helicopter", "Applause", "Gun Shot",
};
static_assert(std::size(kNames) == 128);

}  // namespace

std::string_view GeneralMidiName(int program) {
    return program >= 1 && program <= 128 ? kNames[program - 1] : std::string_view();
}

}  // namespace corvane
