/** The curves of every channel, with speed, spectrum, layers and readout beside them. */
import { effect, signal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';
import { playhead, studio, visible } from '../app.ts';
import type { LayerTrace } from '../engine/protocol.ts';
import { perSecond } from '../model/timecode.ts';
import type { Shown } from '../model/studio.ts';
import { Segments } from '../segments.tsx';
import { words } from '../words.ts';
import { GROUPS, groupLines, layerLines, speedLines, spectrumLines } from './lines.ts';
import type { GroupName, Which } from './lines.ts';
import { Plot } from './plot.ts';
import type { Line, PlotText } from './plot.ts';
import { Readout } from './readout.tsx';

type Sheet = GroupName | 'speed' | 'spectrum' | 'layers' | 'readout';
const SHEETS: readonly Sheet[] = ['position', 'rotation', 'lens', 'speed', 'spectrum', 'layers', 'readout'];

const sheet = signal<Sheet>('position');
const which = signal<Which>({ input: true, shaken: true, added: false });
const axis = signal<{ channel: 'position' | 'rotation'; place: number }>({ channel: 'rotation', place: 0 });
const trace = signal<{ readonly of: Shown; readonly trace: LayerTrace } | null>(null);
const theme = signal(0);
/** The plots take the colours of the theme anew. */
export const themeChanged = (): void => { theme.value += 1; };

interface Drawing {
    readonly text: PlotText;
    readonly x: ArrayLike<number>;
    readonly lines: readonly Line[];
}

const frames = ({ move }: Shown) => Array.from({ length: move.info.frameCount }, (_, at) => move.info.firstFrame + at);

/** What the place shows; a sheet has one or two. */
function drawings(shown: Shown, framesPerSecond: number): Drawing[] {
    const { cm, deg, mm, cmPerSecond, degPerSecond, hertz } = words.curves.units, frame = words.transport.frame;
    const units: Record<GroupName, string> = { position: cm, rotation: deg, lens: `${mm}, ${cm}` };
    const one = sheet.value, x = frames(shown);
    switch (one) {
        case 'position': case 'rotation': case 'lens':
            return [{ text: { title: words.curves[one], x: frame, y: units[one] }, x, lines: groupLines(shown, one, which.value) }];
        case 'speed':
            return [
                { text: { title: words.curves.position, x: frame, y: cmPerSecond }, x, lines: speedLines(shown, framesPerSecond, false) },
                { text: { title: words.curves.rotation, x: frame, y: degPerSecond }, x, lines: speedLines(shown, framesPerSecond, true) },
            ];
        case 'spectrum': {
            const { hertz: at, lines } = spectrumLines(shown, framesPerSecond);
            return [{ text: { title: words.curves.spectrum, x: hertz, y: words.curves.rms }, x: at, lines }];
        }
        case 'layers': {
            const known = trace.value;
            if (known?.of !== shown) return [];
            const { channel, place } = axis.value;
            const name = GROUPS[channel][place]?.name ?? '';
            return [{ text: { title: `${words.curves.layersOf}: ${name}`, x: frame, y: units[channel] }, x, lines: layerLines(known.trace, channel, place) }];
        }
        case 'readout': return [];
    }
}

async function bringTrace(shown: Shown): Promise<void> {
    try {
        const layers = await studio.engine.call('trace', { look: shown.look });
        if (studio.shown.peek() === shown) trace.value = { of: shown, trace: layers };
    } catch (error) {
        studio.tell(error);
    }
}

function usePlots(places: readonly { current: HTMLDivElement | null }[]): void {
    useEffect(() => {
        const toFrames = (low: number, high: number) => {
            if (sheet.peek() !== 'spectrum') visible.value = { first: Math.max(studio.firstFrame.peek(), low), last: Math.min(studio.lastFrame.peek(), Math.max(high, low + 4)) };
        };
        const plots = places.map(({ current }) => new Plot(current as HTMLElement, toFrames));
        const observer = new ResizeObserver(() => { for (const plot of plots) plot.resize(); });
        for (const { current } of places) if (current !== null) observer.observe(current);
        let soon = 0;
        const stopShowing = effect(() => {
            const shown = studio.shown.value;
            if (shown === null) return;
            void theme.value;
            const wanted = drawings(shown, perSecond(studio.rate.value)), range = visible.value, isTime = sheet.value !== 'spectrum';
            if (sheet.value === 'layers' && trace.value?.of !== shown) void bringTrace(shown);
            // Slider moves come faster than plots have to be seen.
            cancelAnimationFrame(soon);
            soon = requestAnimationFrame(() => plots.forEach((plot, index) => {
                const drawing = wanted[index], place = places[index]?.current;
                if (place != null) place.hidden = drawing === undefined;
                if (drawing === undefined) return plot.destroy();
                plot.show(drawing.text, drawing.x, drawing.lines);
                plot.range(isTime ? range.first : NaN, isTime ? range.last : NaN);
                plot.playhead(isTime ? playhead.frame.peek() : NaN);
            }));
        });
        const stopHead = effect(() => {
            const frame = playhead.frame.value;
            if (sheet.peek() !== 'spectrum') for (const plot of plots) plot.playhead(frame);
        });
        return () => {
            observer.disconnect();
            stopShowing();
            stopHead();
            for (const plot of plots) plot.destroy();
        };
    }, []);
}

function Choices() {
    const one = sheet.value;
    if (one === 'layers') {
        const axes = (['position', 'rotation'] as const).flatMap((channel) => GROUPS[channel].map(({ name }, place) => ({ channel, place, name })));
        return <label>{words.curves.layers} <select value={axes.findIndex(({ channel, place }) => channel === axis.value.channel && place === axis.value.place)}
            onChange={(event) => { axis.value = axes[Number(event.currentTarget.value)] ?? axis.value; }}>
            {axes.map(({ name }, index) => <option key={name} value={index}>{name}</option>)}</select></label>;
    }
    if (!(one in GROUPS)) return null;
    return (
        <>
            {(['input', 'shaken', 'added'] as const).map((name) => (
                <label key={name}><input type="checkbox" checked={which.value[name]}
                    onChange={(event) => { which.value = { ...which.value, [name]: event.currentTarget.checked }; }} />{words.curves[name]}</label>))}
        </>
    );
}

export function Curves() {
    const first = useRef<HTMLDivElement>(null), second = useRef<HTMLDivElement>(null);
    usePlots([first, second]);
    return (
        <section class="curves" aria-label={words.regions.curves}>
            <div class="row options">
                <Segments label={words.curves.show} group="sheet" names={SHEETS} texts={(one) => words.curves[one]} chosen={sheet.value}
                    choose={(one) => { sheet.value = one; }} />
                <Choices />
            </div>
            <div class="plots">
                <div class="plot" ref={first} />
                <div class="plot" ref={second} />
                {sheet.value === 'readout' && <Readout />}
            </div>
        </section>
    );
}
