/** Playing, the range that is shaken, jolts, keys and sound, over one line of frames. */
import { signal } from '@preact/signals';
import type { JSX } from 'preact';
import { playhead, studio, visible } from '../app.ts';
import type { Ease } from '../model/look.ts';
import { EASES, WHOLE_RANGE, withJolt, withJoltMoved, withKey, withKeyMoved, withoutJolt, withoutKey, withRange } from '../model/look.ts';
import { perSecond, secondsAt, timecode } from '../model/timecode.ts';
import { shownFactor, shownValue, typedValue, unitSign } from '../model/units.ts';
import { words } from '../words.ts';
import { arrowStep, frameAt, Marks, placeOf } from './lane.tsx';
import { RangeLane } from './range.tsx';
import { SoundLane } from './sound_lane.tsx';

/** The mark that was touched last. */
const selected = signal<{ readonly parameter: number | null; readonly frame: number } | null>(null);

export const joltHere = (): void =>
    studio.edit((look) => withJolt(look, { frame: Math.max(0, playhead.frame.peek()), strength: 1 }));

function Transport() {
    const rate = studio.rate.value, frame = playhead.frame.value, isPlaying = playhead.speed.value !== 0;
    const button = (text: string, label: string, action: () => void, pressed?: boolean) =>
        <button type="button" class="icon" aria-label={label} title={label} onClick={action} {...(pressed === undefined ? {} : { 'aria-pressed': pressed })}>{text}</button>;
    return (
        <div class="row transport">
            {button('|◂', words.transport.first, () => playhead.go(studio.firstFrame.peek()))}
            {button('◂', words.transport.back, () => playhead.go(frame - 1))}
            {button(isPlaying ? '❚❚' : '▶', isPlaying ? words.transport.pause : words.transport.play, () => playhead.toggle())}
            {button('▸', words.transport.on, () => playhead.go(frame + 1))}
            {button('▸|', words.transport.last, () => playhead.go(studio.lastFrame.peek()))}
            {button('⟳', words.transport.loop, () => { playhead.loops.value = !playhead.loops.value; }, playhead.loops.value)}
            <label>{words.transport.frame} <input type="number" class="frame" value={frame} min={studio.firstFrame.value} max={studio.lastFrame.value}
                onInput={({ currentTarget: { value } }) => { if (value !== '' && Number.isFinite(Number(value))) playhead.go(Number(value)); }} /></label>
            <output class="clock" aria-label={words.transport.timecode}>{timecode(frame, rate)}</output>
            <output class="clock" aria-label={words.transport.seconds}>{secondsAt(frame, rate).toFixed(2)} s</output>
            <span class="note">{perSecond(rate).toFixed(3).replace(/\.?0+$/, '')} fps</span>
        </div>
    );
}

const TICKS = [1, 2, 5, 10, 25, 50, 100, 250, 500, 1000, 2500, 5000, 10000, 50000, 100000];

function Ruler() {
    const { first, last } = visible.value, rate = studio.rate.value;
    const step = TICKS.find((tick) => (last - first) / tick <= 10) ?? 1e6;
    const ticks: number[] = [];
    for (let frame = Math.ceil(first / step) * step; frame <= last; frame += step) ticks.push(frame);
    const scrub = (event: JSX.TargetedPointerEvent<HTMLDivElement>) => {
        if (event.button !== 0) return;
        const line = event.currentTarget;
        line.setPointerCapture(event.pointerId);
        playhead.play(0);
        playhead.go(frameAt(event, line));
        const move = (now: PointerEvent) => playhead.go(frameAt(now, line));
        line.addEventListener('pointermove', move);
        line.addEventListener('lostpointercapture', () => line.removeEventListener('pointermove', move), { once: true });
    };
    return (
        <div class="lane">
            <span class="lane-name">{words.transport.frame}</span>
            <div class="line ruler" onPointerDown={scrub}>
                {ticks.map((frame) => <span key={frame} class="tick" style={{ left: `${placeOf(frame)}%` }} aria-hidden="true">{frame}</span>)}
                <div class="playhead" role="slider" tabIndex={0} aria-label={words.timeline.frame} aria-valuemin={studio.firstFrame.value}
                    aria-valuemax={studio.lastFrame.value} aria-valuenow={playhead.frame.value} aria-valuetext={timecode(playhead.frame.value, rate)}
                    style={{ left: `${placeOf(playhead.frame.value)}%` }}
                    onKeyDown={(event) => {
                        const by = arrowStep(event);
                        if (by === 0) return;
                        event.preventDefault();
                        event.stopPropagation();
                        playhead.go(playhead.frame.peek() + by);
                    }} />
            </div>
        </div>
    );
}

function RangeTools() {
    const { range } = studio.look.value;
    return (
        <div class="row options">
            <label>{words.timeline.mix} <input type="range" min={0} max={1} step={0.01} value={range.mix}
                aria-valuetext={`${Math.round(range.mix * 100)} %`}
                onInput={(event) => { const mix = Number(event.currentTarget.value); studio.edit((look) => withRange(look, { mix }), 'mix'); }}
                onChange={() => studio.settle()} /> <output>{Math.round(range.mix * 100)}%</output></label>
            {(['position', 'rotation', 'lens'] as const).map((channel) => (
                <label key={channel}><input type="checkbox" checked={range[channel]}
                    onChange={(event) => { const on = event.currentTarget.checked; studio.edit((look) => withRange(look, { [channel]: on })); }} />
                    {words.timeline[channel]}</label>))}
            <label>{words.timeline.lensAware} <input type="range" min={0} max={1} step={0.05} value={range.lensAware}
                onInput={(event) => { const lensAware = Number(event.currentTarget.value); studio.edit((look) => withRange(look, { lensAware }), 'lens'); }}
                onChange={() => studio.settle()} /></label>
            <button type="button" disabled={JSON.stringify(range) === JSON.stringify(WHOLE_RANGE)}
                onClick={() => studio.edit((look) => ({ ...look, range: WHOLE_RANGE }))}>{words.timeline.wholeShot}</button>
            <button type="button" onClick={joltHere}>{words.timeline.addJolt}</button>
            <button type="button" disabled={studio.look.value.jolts.length === 0} onClick={() => studio.edit((look) => ({ ...look, jolts: [] }))}>
                {words.timeline.clearJolts}</button>
            <span class="push" />
            <button type="button" class="icon" aria-label={words.timeline.zoomIn} onClick={() => zoom(0.5)}>+</button>
            <button type="button" class="icon" aria-label={words.timeline.zoomOut} onClick={() => zoom(2)}>−</button>
        </div>
    );
}

/** About the playhead; at most the whole shot. */
export function zoom(factor: number): void {
    const { first, last } = visible.peek(), middle = playhead.frame.peek();
    const whole = { first: studio.firstFrame.peek(), last: Math.max(studio.lastFrame.peek(), studio.firstFrame.peek() + 1) };
    const width = Math.min(Math.max(4, (last - first) * factor), whole.last - whole.first);
    const begin = Math.min(Math.max(whole.first, middle - width / 2), whole.last - width);
    visible.value = { first: begin, last: begin + width };
}

function JoltLane() {
    const jolts = studio.look.value.jolts, at = selected.value;
    const marks = jolts.map(({ frame, strength }) =>
        ({ frame, label: words.timeline.jolt(frame), isSelected: at?.parameter === null && at.frame === frame, size: strength }));
    return <Marks label={words.timeline.jolts} marks={marks} shape="jolt" moved={(look, from, to) => withJoltMoved(look, from, Math.max(0, to))}
        removed={withoutJolt} select={(frame) => { selected.value = frame === null ? null : { parameter: null, frame }; }} />;
}

const labelOf = (id: number): string => studio.facts.value?.parameters.find((parameter) => parameter.id === id)?.label ?? String(id);

function KeyLanes() {
    const { keys } = studio.look.value, at = selected.value;
    return (
        <>
            {Object.entries(keys).map(([text, list]) => {
                const id = Number(text), label = labelOf(id);
                const marks = list.map(({ frame }) =>
                    ({ frame, label: words.timeline.key(label, frame), isSelected: at?.parameter === id && at.frame === frame }));
                return <Marks key={id} label={label} marks={marks} shape="key" moved={(look, from, to) => withKeyMoved(look, id, from, to)}
                    removed={(look, frame) => withoutKey(look, id, frame)}
                    select={(frame) => { selected.value = frame === null ? null : { parameter: id, frame }; }} />;
            })}
        </>
    );
}

/** What is selected, as fields. */
function Inspector() {
    const at = selected.value, look = studio.look.value;
    if (at === null) return null;
    if (at.parameter === null) {
        const jolt = look.jolts.find(({ frame }) => frame === at.frame);
        if (jolt === undefined) return null;
        return (
            <div class="row inspector">
                <span>{words.timeline.jolt(jolt.frame)}</span>
                <label>{words.timeline.strength} <input type="range" min={0} max={1} step={0.01} value={jolt.strength}
                    onInput={(event) => { const strength = Number(event.currentTarget.value); studio.edit((now) => withJolt(now, { ...jolt, strength }), `jolt ${jolt.frame}`); }}
                    onChange={() => studio.settle()} /></label>
                <button type="button" onClick={() => studio.edit((now) => withoutJolt(now, jolt.frame))}>{words.timeline.remove}</button>
            </div>
        );
    }
    const id = at.parameter, key = look.keys[id]?.find(({ frame }) => frame === at.frame);
    const parameter = studio.facts.value?.parameters.find((one) => one.id === id);
    if (key === undefined || parameter === undefined) return null;
    const take = (text: string) => {
        const value = typedValue(text, parameter.unit, perSecond(studio.rate.peek()));
        if (value === undefined) studio.say(words.panel.notANumber(parameter.label, text), true);
        else studio.edit((now) => withKey(now, id, { ...key, value }));
    };
    return (
        <div class="row inspector">
            <span>{words.timeline.key(parameter.label, key.frame)}</span>
            <label>{words.timeline.value} <input type="text" inputMode="decimal" size={8} value={shownValue(key.value, parameter.unit)}
                onChange={(event) => take(event.currentTarget.value)} />{shownFactor(parameter.unit) !== 1 && unitSign(parameter.unit)}</label>
            <label>{words.timeline.ease} <select value={key.ease}
                onChange={(event) => { const ease = event.currentTarget.value as Ease; studio.edit((now) => withKey(now, id, { ...key, ease })); }}>
                {EASES.map((ease) => <option key={ease} value={ease}>{words.timeline.eases[ease]}</option>)}</select></label>
            <button type="button" onClick={() => studio.edit((now) => withoutKey(now, id, key.frame))}>{words.timeline.remove}</button>
        </div>
    );
}

export function Timeline() {
    return (
        <section class="timeline" aria-label={words.regions.timeline}>
            <Transport />
            <Ruler />
            <RangeLane />
            <JoltLane />
            <KeyLanes />
            <SoundLane />
            <RangeTools />
            <Inspector />
        </section>
    );
}
