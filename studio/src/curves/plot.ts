/** One plot with a cursor at the playhead. */
import uPlot from 'uplot';

export interface Line {
    readonly label: string;
    readonly values: ArrayLike<number>;
    readonly colour: string;
    readonly dash?: readonly number[];
    readonly width?: number;
}
export interface PlotText {
    readonly title: string;
    readonly x: string;
    readonly y: string;
}

const style = (name: string) => getComputedStyle(document.documentElement).getPropertyValue(name).trim();

/** Draws itself anew with each set of lines: uPlot keeps its series, so that another count of them is another plot. */
export class Plot {
    private plot: uPlot | undefined;
    private shape = '';
    private head = NaN;
    private readonly place: HTMLElement;
    private readonly zoomed: ((low: number, high: number) => void) | undefined;

    constructor(place: HTMLElement, zoomed?: (low: number, high: number) => void) {
        this.place = place;
        this.zoomed = zoomed;
    }

    show(text: PlotText, x: ArrayLike<number>, lines: readonly Line[]): void {
        const data = [x, ...lines.map(({ values }) => values)] as unknown as uPlot.AlignedData;
        const shape = JSON.stringify([text, lines.map(({ label, colour, dash, width }) => [label, colour, dash, width]), style('--text')]);
        if (this.plot !== undefined && shape === this.shape) {
            this.plot.setData(data, false);
            this.plot.redraw(true);
            this.rescale(x);
            return;
        }
        this.destroy();
        this.shape = shape;
        this.plot = new uPlot(this.options(text, lines), data, this.place);
        this.rescale(x);
    }
    private low = NaN;
    private high = NaN;
    /** What is visible of x; else all. */
    range(low: number, high: number): void {
        this.low = low;
        this.high = high;
        this.plot?.setScale('x', { min: low, max: high });
    }
    playhead(at: number): void {
        this.head = at;
        this.plot?.redraw(false);
    }
    resize(): void {
        this.plot?.setSize(this.size());
    }
    destroy(): void {
        this.plot?.destroy();
        this.plot = undefined;
    }

    private rescale(x: ArrayLike<number>): void {
        const [low, high] = Number.isNaN(this.low) ? [x[0] ?? 0, x[x.length - 1] ?? 1] : [this.low, this.high];
        this.plot?.setScale('x', { min: low, max: Math.max(high, low + 1e-6) });
    }
    private size(): { width: number; height: number } {
        return { width: Math.max(120, this.place.clientWidth), height: Math.max(90, this.place.clientHeight - 26) };
    }
    private options({ title, x, y }: PlotText, lines: readonly Line[]): uPlot.Options {
        const axis = { stroke: style('--text'), grid: { stroke: style('--line'), width: 1 }, ticks: { stroke: style('--line'), width: 1 }, font: '11px system-ui' };
        return {
            ...this.size(), title, scales: { x: { time: false } }, legend: { live: false },
            cursor: { drag: { x: this.zoomed !== undefined, y: false, setScale: false }, y: false },
            axes: [{ ...axis, label: x, labelSize: 14, labelFont: '11px system-ui', size: 26 }, { ...axis, label: y, labelSize: 14, labelFont: '11px system-ui', size: 46 }],
            series: [{ label: x }, ...lines.map(({ label, colour, dash, width }) =>
                ({ label, stroke: colour, width: width ?? 1.2, points: { show: false }, ...(dash === undefined ? {} : { dash: [...dash] }) }))],
            hooks: {
                draw: [(plot) => this.drawHead(plot)],
                setSelect: [(plot) => this.zoomTo(plot)],
            },
        };
    }
    private drawHead(plot: uPlot): void {
        if (Number.isNaN(this.head)) return;
        const at = plot.valToPos(this.head, 'x', true), { left, top, width, height } = plot.bbox;
        if (at < left || at > left + width) return;
        plot.ctx.fillStyle = style('--accent');
        plot.ctx.fillRect(Math.round(at), top, Math.max(1, devicePixelRatio), height);
    }
    private zoomTo(plot: uPlot): void {
        const { left, width } = plot.select;
        if (width < 4) return;
        const [low, high] = [plot.posToVal(left, 'x'), plot.posToVal(left + width, 'x')];
        plot.setSelect({ left: 0, top: 0, width: 0, height: 0 }, false);
        this.zoomed?.(low, high);
    }
}
