/** The views and what is chosen about them. */
import { effect, signal } from '@preact/signals';
import { useEffect, useRef } from 'preact/hooks';
import { Segments } from '../segments.tsx';
import { words } from '../words.ts';
import { playhead, studio } from '../app.ts';
import { blend, MOMENTS, SHUTTER } from './blur.ts';
import { isStacked, LAYOUTS, panesOf } from './layout.ts';
import type { Layout } from './layout.ts';
import { fitted, Stage } from './stage.ts';

export const RATIOS: Record<string, number> = { '16:9': 16 / 9, '2.39:1': 2.39, '1.85:1': 1.85, '4:3': 4 / 3, '1:1': 1, '9:16': 9 / 16 };

export const layout = signal<Layout>('side');
export const wipe = signal(0.5);
export const ratioName = signal('16:9');
export const guides = signal(true);
export const blurs = signal(false);
const turned = signal(0);
export const ownScene = signal<ArrayBuffer | null>(null);
const hasGraphics = signal(true);

/** What pictures and films are made of; nothing: the browser draws no 3D. */
export let stage: Stage | undefined;
export const ratio = (): number => RATIOS[ratioName.peek()] ?? 16 / 9;

function guideBoxes(width: number, height: number) {
    return panesOf(layout.value, wipe.value, isStacked(width, height, RATIOS[ratioName.value] ?? 16 / 9)).filter(({ view }) => view !== 'outside').map((pane) => {
        const inner = fitted(pane.width * width, pane.height * height, RATIOS[ratioName.value] ?? 16 / 9);
        return { view: pane.view, left: pane.x * width + inner.x, top: pane.y * height + inner.y, width: inner.width, height: inner.height };
    });
}

const size = signal({ width: 0, height: 0 });

function Guides() {
    const { width, height } = size.value;
    if (width === 0) return null;
    const boxes = guideBoxes(width, height);
    const names = layout.value === 'wipe' ? [] : boxes;
    return (
        <svg class="guides" viewBox={`0 0 ${width} ${height}`} aria-hidden="true">
            {guides.value && boxes.map((box) => (
                <g key={box.view} fill="none">
                    {[0.9, 0.8].map((share) => <rect key={share} x={box.left + box.width * (1 - share) / 2} y={box.top + box.height * (1 - share) / 2}
                        width={box.width * share} height={box.height * share} />)}
                    <path d={`M${box.left + box.width / 2 - 8} ${box.top + box.height / 2}h16m-8 -8v16`} />
                </g>))}
            {names.map((box) => <text key={box.view} x={box.left + 8} y={box.top + 18}>
                {box.view === 'input' ? words.views.input : words.views.shaken}</text>)}
            {layout.value === 'wipe' && boxes[0] !== undefined &&
                <path class="wipe" d={`M${boxes[0].left + boxes[0].width * wipe.value} ${boxes[0].top}v${boxes[0].height}`} />}
        </svg>
    );
}

let drawn = 0;
/** The newest frame alone is drawn, when the screen is. */
function drawSoon(): void {
    if (drawn !== 0) return;
    drawn = requestAnimationFrame(() => {
        drawn = 0;
        draw();
    });
}

let isBlurring = false;
/** One at a time; a frame that came meanwhile is drawn after it. */
async function drawBlurred(over: HTMLCanvasElement): Promise<void> {
    const shown = studio.shown.peek(), target = over.getContext('2d'), frame = playhead.frame.peek();
    if (stage === undefined || shown === null || target === null || isBlurring) return;
    isBlurring = true;
    const moments = await studio.engine.call('between', { look: shown.look, frame, shutter: SHUTTER, count: MOMENTS })
        .finally(() => { isBlurring = false; });
    if (stage === undefined || shown !== studio.shown.peek() || frame !== playhead.frame.peek()) return drawSoon();
    const { canvas } = stage, place = frame - studio.firstFrame.peek(), panes = panesNow(canvas);
    blend(target, canvas, MOMENTS, (moment) => stage?.draw(shown, place, panes, ratio(), moments.subarray(moment * 8, moment * 8 + 8)));
    over.hidden = false;
}

const panesNow = ({ width, height }: HTMLCanvasElement) => panesOf(layout.peek(), wipe.peek(), isStacked(width, height, ratio()));

let blurred: HTMLCanvasElement | null = null;
export function draw(): void {
    const shown = studio.shown.peek();
    if (stage === undefined || shown === null) return;
    const { canvas } = stage;
    stage.draw(shown, playhead.frame.peek() - studio.firstFrame.peek(), panesNow(canvas), ratio());
    if (blurred === null) return;
    if (!blurs.peek()) blurred.hidden = true;
    else void drawBlurred(blurred).catch((error: unknown) => studio.tell(error));
}

function useStage(canvas: { current: HTMLCanvasElement | null }, over: { current: HTMLCanvasElement | null }): void {
    useEffect(() => {
        if (canvas.current === null) return undefined;
        const frame = canvas.current.parentElement as HTMLElement;
        try {
            stage = new Stage(canvas.current, () => { turned.value += 1; });
        } catch {
            hasGraphics.value = false;
            return undefined;
        }
        blurred = over.current;
        const observer = new ResizeObserver(() => {
            size.value = { width: frame.clientWidth, height: frame.clientHeight };
            const dense = Math.min(devicePixelRatio, 2);
            stage?.resize(Math.max(1, Math.round(frame.clientWidth * dense)), Math.max(1, Math.round(frame.clientHeight * dense)));
            drawSoon();
        });
        observer.observe(frame);
        const stopShowing = effect(() => {
            if (studio.shown.value !== null) stage?.show(studio.shown.value);
            drawSoon();
        });
        const stopDrawing = effect(() => {
            void [playhead.frame.value, layout.value, wipe.value, ratioName.value, blurs.value, turned.value];
            if (stage !== undefined) stage.turns = layout.value === 'outside' || layout.value === 'all';
            drawSoon();
        });
        const stopScene = effect(() => {
            const bytes = ownScene.value;
            if (bytes === null) stage?.useUsualScene();
            else stage?.useScene(bytes).then(drawSoon, (error: unknown) => { ownScene.value = null; studio.tell(error); });
            drawSoon();
        });
        return () => {
            observer.disconnect();
            for (const stop of [stopShowing, stopDrawing, stopScene]) stop();
            stage?.dispose();
            stage = undefined;
        };
    }, []);
}

export function Views() {
    const canvas = useRef<HTMLCanvasElement>(null), over = useRef<HTMLCanvasElement>(null);
    useStage(canvas, over);
    return (
        <section class="views" aria-label={words.regions.views}>
            <div class="row options">
                <Segments label={words.views.layout} group="layout" names={LAYOUTS} texts={(one) => words.views.layouts[one]} chosen={layout.value}
                    choose={(one) => { layout.value = one; }} />
                {layout.value === 'wipe' && <input type="range" min={0} max={1} step={0.01} value={wipe.value} aria-label={words.views.wipe}
                    onInput={(event) => { wipe.value = Number(event.currentTarget.value); }} />}
                <label>{words.views.ratio} <select value={ratioName.value} onChange={(event) => { ratioName.value = event.currentTarget.value; }}>
                    {Object.keys(RATIOS).map((name) => <option key={name}>{name}</option>)}</select></label>
                <label><input type="checkbox" checked={guides.value} onChange={(event) => { guides.value = event.currentTarget.checked; }} />
                    {words.views.guides}</label>
                <label><input type="checkbox" checked={blurs.value} onChange={(event) => { blurs.value = event.currentTarget.checked; }} />
                    {words.views.blur}</label>
            </div>
            <div class="screen">
                <canvas ref={canvas} role="img" aria-label={words.views.picture(words.views.shaken.toLowerCase())} />
                <canvas ref={over} class="blurred" hidden aria-hidden="true" />
                <Guides />
                {!hasGraphics.value && <p class="note">{words.views.noGraphics}</p>}
            </div>
        </section>
    );
}
