// Each relation of the score in terms of its classes: systemMeasures.Add(system, measure). Constants without data.
#pragma once

#include "model/EventRecords.h"
#include "model/PreferenceRecords.h"
#include "model/SymbolRecords.h"

namespace corvane {

template <class Parent, class Child, int N>
using DoubleAggregation = Relation<TopT<Parent, N, 3>, BotT<Child, N, 3>>;
template <class Parent, class Child, int N>
using SingleAggregation = Relation<Top2T<Parent, N, 3>, Bot2T<Child, N, 3>>;
template <class Parent, class Child, int N>
using SingleCollection = Relation<Top3T<Parent, N, 3>, Bot3T<Child, N, 3>>;

// The skeleton.
inline constexpr SingleAggregation<Document, Page, 1> documentPages;
inline constexpr DoubleAggregation<Document, TarnFont, 3> documentFonts;
inline constexpr DoubleAggregation<Document, ClassPreferences, 4> documentPreferences;
inline constexpr SingleAggregation<Document, DocStaff, 13> documentDocStaffs;
inline constexpr SingleCollection<Document, FontSymbol, 30> documentFontSymbols;
inline constexpr SingleCollection<CompositeSymbol, FontSymbol, 34> compositeParts;
inline constexpr SingleAggregation<Page, System, 2> pageSystems;
inline constexpr SingleAggregation<Page, PageText, 50> pageTexts;
inline constexpr DoubleAggregation<System, MultiStaff, 3> systemStaffs;
inline constexpr DoubleAggregation<System, Measure, 10> systemMeasures;
inline constexpr SingleCollection<System, Connection, 43> systemConnections;
inline constexpr SingleCollection<Connection, ConnStaff, 42> connectionStaffs;
inline constexpr SingleAggregation<Staff, ConnStaff, 41> staffConnections;
inline constexpr DoubleAggregation<AllStaff, MultiStaff, 4> allStaffStaffs;
inline constexpr DoubleAggregation<StaffCustom, StaffBot, 5> customStaffs;
inline constexpr SingleAggregation<DocStaff, Staff, 18> docStaffStaffs;
inline constexpr DoubleAggregation<DocStaff, MeasureStaff, 16> docStaffMeasureStaffs;
inline constexpr SingleAggregation<Measure, MeasureStaff, 11> measureStaffs;
inline constexpr SingleAggregation<MeasureStaff, Voice, 20> measureStaffVoices;
inline constexpr SingleAggregation<MeasureStaff, StaffMeasureSymbol, 17> staffSymbols;
inline constexpr SingleAggregation<Measure, MeasureSymbol, 31> measureSymbols;
inline constexpr SingleAggregation<Measure, TimeElement, 100> measureTimeElements;

// Notes.
inline constexpr SingleAggregation<Voice, VoiceSymbol, 21> voiceSymbols;
inline constexpr SingleAggregation<VoiceSymbol, VoiceSymbolAttribute, 39> voiceSymbolAttributes;
inline constexpr SingleAggregation<ChordSymbol, Chords, 32> chordSymbolChords;
inline constexpr SingleAggregation<ChordSymbol, Stem, 33> chordSymbolStems;
inline constexpr SingleAggregation<Chords, GenericNote, 40> chordNotes;
inline constexpr SingleAggregation<Stem, GenericNote, 60> stemNotes;
inline constexpr SingleAggregation<GenericNote, NoteAttribute, 35> noteAttributes;
inline constexpr SingleAggregation<BeamSymbol, BeamSymbolAttribute, 70> beamSymbolAttributes;
inline constexpr SingleAggregation<Beam, BeamMarker, 900> beamMarkers;
inline constexpr SingleAggregation<TieValue, MarkValue, 36> tieMarks;
inline constexpr SingleAggregation<Irregular, MarkIrreg, 38> irregularMarks;

// Events.
inline constexpr SingleAggregation<MarkUp, SoundEvent, 1001> markUpEvents;
inline constexpr SingleAggregation<GenericNote, SoundEvent, 1002> noteEvents;

// Spanners and text.
inline constexpr SingleAggregation<Endings, MarkEndings, 44> endingsMarks;
inline constexpr SingleAggregation<Hairpin, MarkHairpin, 45> hairpinMarks;
inline constexpr SingleAggregation<Ottava, MarkOttava, 46> ottavaMarks;
inline constexpr SingleAggregation<Slur, MarkSlur, 47> slurMarks;
inline constexpr SingleAggregation<MeasureStaffText, MarkText, 48> textMarks;
inline constexpr SingleAggregation<AllStaff, MarkText, 49> allStaffTextMarks;
inline constexpr SingleAggregation<Trillo, MarkTrillo, 51> trilloMarks;
inline constexpr SingleAggregation<Pedale, MarkPedale, 52> pedaleMarks;

}  // namespace corvane
