/** The presets: what each looks like, one on another's way, and which is nearest to a recording. */
import { effect, signal, useSignal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';
import { studio } from '../app.ts';
import type { NearPreset, Preset } from '../engine/protocol.ts';
import { PER_FRAME } from '../model/channels.ts';
import type { Base } from '../model/look.ts';
import { withBase } from '../model/look.ts';
import { words } from '../words.ts';

export const THUMBNAIL_FRAMES = 72;
const THUMBNAIL_RATE = 24;

/** By "CATEGORY/NAME": the numbers of a camera that stands still. */
const thumbnails = signal<ReadonlyMap<string, Float64Array>>(new Map());
/** The presets by how near they are to a recording. */
export const nearest = signal<{ readonly of: string; readonly presets: readonly NearPreset[] } | null>(null);

export const nameOf = ({ category, name }: { category: string; name: string }): string => `${category}/${name}`;

/** A few at a time, so that whatever else is asked meanwhile does not wait. */
export async function bringThumbnails(): Promise<void> {
    const names = (studio.facts.peek()?.presets ?? []).map(nameOf);
    for (let at = 0; at < names.length; at += 4) {
        const some = names.slice(at, at + 4);
        const numbers = await studio.engine.call('thumbnails', { presets: some, frames: THUMBNAIL_FRAMES });
        thumbnails.value = new Map([...thumbnails.value, ...some.map((name, index) => [name, numbers[index] as Float64Array] as const)]);
    }
}

const movesLess = matchMedia('(prefers-reduced-motion: reduce)');

/** A picture's edge and horizon as the shaken camera has them, ten times as strong where they would be small. */
function drawThumbnail(canvas: HTMLCanvasElement, numbers: Float64Array, frame: number): void {
    const context = canvas.getContext('2d');
    if (context === null) return;
    const { width, height } = canvas;
    const at = frame * PER_FRAME, [x, y, , heading, pitch, bank] = numbers.subarray(at, at + 6) as unknown as [number, number, number, number, number, number];
    context.clearRect(0, 0, width, height);
    context.save();
    context.translate(width / 2 + heading * width * 2.2 - x * 0.25, height / 2 + pitch * width * 2.2 + y * 0.25);
    context.rotate(bank * 2);
    context.strokeStyle = getComputedStyle(canvas).color;
    context.lineWidth = 1.5;
    context.strokeRect(-width * 0.3, -height * 0.3, width * 0.6, height * 0.6);
    context.beginPath();
    context.moveTo(-width, 0);
    context.lineTo(width, 0);
    context.moveTo(0, -height * 0.12);
    context.lineTo(0, height * 0.12);
    context.stroke();
    context.restore();
}

function Thumbnail({ name }: { name: string }) {
    const canvas = useRef<HTMLCanvasElement>(null);
    useEffect(() => {
        let handle = 0, isSeen = false;
        const tick = (time: number) => {
            const numbers = thumbnails.peek().get(name);
            if (canvas.current !== null && numbers !== undefined)
                drawThumbnail(canvas.current, numbers, movesLess.matches ? THUMBNAIL_FRAMES - 1 : Math.floor((time / 1000) * THUMBNAIL_RATE) % THUMBNAIL_FRAMES);
            handle = isSeen && !movesLess.matches ? requestAnimationFrame(tick) : 0;
        };
        const observer = new IntersectionObserver((entries) => {
            isSeen = entries.at(-1)?.isIntersecting ?? false;
            if (isSeen && handle === 0) handle = requestAnimationFrame(tick);
        });
        if (canvas.current !== null) observer.observe(canvas.current);
        const stop = effect(() => {
            if (thumbnails.value.has(name) && handle === 0) requestAnimationFrame(tick);
        });
        return () => {
            isSeen = false;
            observer.disconnect();
            cancelAnimationFrame(handle);
            stop();
        };
    }, [name]);
    return <canvas ref={canvas} width={72} height={40} aria-hidden="true" />;
}

function Tile({ preset, distance }: { preset: Preset; distance: number | undefined }) {
    const name = nameOf(preset), base = studio.look.value.base;
    const isOn = (base.kind === 'preset' || base.kind === 'mix') && base.name === name;
    return (
        <button type="button" class={`tile${isOn ? ' on' : ''}`} aria-pressed={isOn} title={preset.sentence}
            onClick={() => studio.edit((look) => withBase(look, { kind: 'preset', name }))}>
            <Thumbnail name={name} />
            <span>{preset.name}</span>
            <small>{distance === undefined ? (preset.isPair ? words.presets.pair : ' ') : `${words.presets.distance} ${distance.toFixed(2)}`}</small>
        </button>
    );
}

function Mix({ presets }: { presets: readonly Preset[] }) {
    const base = studio.look.value.base;
    if (base.kind !== 'preset' && base.kind !== 'mix') return null;
    const second = base.kind === 'mix' ? base.second : '', share = base.kind === 'mix' ? base.share : 0.5;
    const mixed = (other: string, by: number): Base => (other === '' ? { kind: 'preset', name: base.name } : { kind: 'mix', name: base.name, second: other, share: by });
    const choose = (other: string, by: number, gesture: string | null) =>
        studio.edit((look) => ({ ...withBase(look, mixed(other, by)), settings: look.settings, keys: look.keys }), gesture);
    return (
        <div class="row options">
            <label>{words.presets.mixWith} <select value={second} onChange={(event) => choose(event.currentTarget.value, share, null)}>
                <option value="">{words.presets.nothing}</option>
                {presets.map(nameOf).filter((name) => name !== base.name).map((name) => <option key={name}>{name}</option>)}</select></label>
            {base.kind === 'mix' && <label>{words.presets.share} <input type="range" min={0} max={1} step={0.01} value={share}
                aria-valuetext={`${Math.round(share * 100)} %`} onInput={(event) => choose(second, Number(event.currentTarget.value), 'share')}
                onChange={() => studio.settle()} /> <output>{Math.round(share * 100)}%</output></label>}
            <label title={words.presets.keepHertzHint}><input type="checkbox" checked={studio.look.value.keepHertz}
                onChange={(event) => { const keepHertz = event.currentTarget.checked; studio.edit((look) => ({ ...look, keepHertz })); }} />
                {words.presets.keepHertz}</label>
        </div>
    );
}

const baseText = (base: Base): string =>
    base.kind === 'defaults' ? words.panel.defaults : base.kind === 'mix' ? `${base.name} + ${base.second}` : base.name;

export function Presets() {
    const word = useSignal(''), category = useSignal('');
    const all = studio.facts.value?.presets ?? [], near = nearest.value;
    const categories = [...new Set(all.map((preset) => preset.category))];
    const fold = word.value.trim().toLowerCase();
    const distances = new Map(near?.presets.map((preset) => [nameOf(preset), preset.distance]));
    const shown = all.filter((preset) => (category.value === '' || preset.category === category.value) &&
        [preset.name, preset.category, preset.sentence].some((text) => text.toLowerCase().includes(fold)));
    if (near !== null) shown.sort((a, b) => (distances.get(nameOf(a)) ?? Infinity) - (distances.get(nameOf(b)) ?? Infinity));
    return (
        <section class="presets" aria-label={words.regions.presets}>
            <p class="note">{words.panel.base}: <strong>{baseText(studio.look.value.base)}</strong>{' '}
                {studio.look.value.base.kind !== 'defaults' && <button type="button" class="small"
                    onClick={() => studio.edit((look) => withBase(look, { kind: 'defaults' }))}>{words.panel.defaults}</button>}</p>
            <div class="row">
                <input type="search" placeholder={words.presets.search} aria-label={words.presets.search} value={word.value}
                    onInput={(event) => { word.value = event.currentTarget.value; }} />
                <select aria-label={words.regions.presets} value={category.value} onChange={(event) => { category.value = event.currentTarget.value; }}>
                    <option value="">{words.presets.all}</option>
                    {categories.map((one) => <option key={one}>{one}</option>)}
                </select>
            </div>
            {near !== null && <p class="note">{words.presets.nearestTo(near.of)} <button type="button" class="small" onClick={() => { nearest.value = null; }}>{words.dismiss}</button></p>}
            {shown.length === 0 && <p class="note">{words.presets.nothingFound}</p>}
            <div class="tiles">{shown.map((preset) => <Tile key={nameOf(preset)} preset={preset} distance={distances.get(nameOf(preset))} />)}</div>
            <Mix presets={all} />
        </section>
    );
}
